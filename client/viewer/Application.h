// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"
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

    // Opens a file in a window of its own, or shows the window that has it.
    void open(GFile* file);

private:
    static void openAll(void* self, GFile** files, int count, const char* hint);
    void startUp();
    void showWindow();
    Window& addWindow();
    void newWindow() { addWindow(); }
    void quit();

    GLibHolder<AdwApplication> mApplication;
    std::vector<std::unique_ptr<Window>> mWindows;
};

} // namespace lectern::viewer
