// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/Application.h"

#include "client/viewer/Pending.h"
#include "client/viewer/Ui.h"

#include <algorithm>

namespace lectern::viewer {

Application::Application() : mApplication(adw_application_new(APPLICATION_ID, G_APPLICATION_HANDLES_OPEN)) {
    g_signal_connect_swapped(mApplication.get(), "startup", G_CALLBACK(onSignal<&Application::startUp>),
                             this);
    g_signal_connect_swapped(mApplication.get(), "activate", G_CALLBACK(onSignal<&Application::showWindow>),
                             this);
    g_signal_connect_swapped(mApplication.get(), "open", G_CALLBACK(&Application::openAll), this);
}

Application::~Application() = default;

int Application::run(int argc, char** argv) {
    return g_application_run(G_APPLICATION(mApplication.get()), argc, argv);
}

void Application::startUp() {
    GActionMap* actions = G_ACTION_MAP(mApplication.get());
    addAction(actions, "new-window", G_CALLBACK(onSignal<&Application::newWindow>), this);
    addAction(actions, "quit", G_CALLBACK(onSignal<&Application::quit>), this);
}

void Application::openAll(void* self, GFile** files, int count, const char* /*hint*/) {
    std::for_each(files, files + count, [self](GFile* file) { static_cast<Application*>(self)->open(file); });
}

void Application::open(GFile* file) {
    addWindow().open(file);
}

void Application::showWindow() {
    if (mWindows.empty()) {
        addWindow();
    }
    gtk_window_present(gtk_application_get_active_window(GTK_APPLICATION(mApplication.get())));
}

Window& Application::addWindow() {
    mWindows.push_back(std::make_unique<Window>(GTK_APPLICATION(mApplication.get())));
    gtk_window_present(mWindows.back()->window());
    return *mWindows.back();
}

void Application::quit() {
    mWindows.clear();
}

} // namespace lectern::viewer
