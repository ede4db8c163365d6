// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Connection.h"
#include "client/viewer/History.h"
#include "client/viewer/Window.h"

#include <memory>
#include <vector>

namespace lectern::viewer {

// The program: one process for all windows of a desktop. A second start hands its files
// to the first.
class Application {
public:
    Application();
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    // Returns the exit status of the process.
    int run(int argc, char** argv);

    // Opens a file: shows the window that has it, or opens it in this window if that is
    // free, else in another free window or in a new one.
    void open(GFile* file, Window* preferred = nullptr);
    // Destroys a window.
    void remove(const Window& window);
    Connection& connection() { return mConnection; }
    History& history() { return mHistory; }

private:
    static void openAll(void* self, GFile** files, int count, const char* hint);
    void startUp();
    void showWindow();
    Window& addWindow();
    void newWindow() { addWindow(); }
    void showAbout();
    void quit();
    static gboolean quitAtSignal(void* self);
    GtkWindow* activeWindow() const {
        return gtk_application_get_active_window(GTK_APPLICATION(mApplication.get()));
    }

    GLibHolder<AdwApplication> mApplication;
    Connection mConnection;
    History mHistory{History::usualPath()};
    std::vector<std::unique_ptr<Window>> mWindows;
};

} // namespace lectern::viewer
