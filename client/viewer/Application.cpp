// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/Application.h"

#include "client/viewer/Pending.h"
#include "client/viewer/Ui.h"

#include <glib-unix.h>

#include <algorithm>
#include <csignal>

namespace lectern::viewer {

namespace {

struct Shortcut {
    const char* action;
    const char* keys[4]; // up to three, and the end
};

// ui/shortcuts.ui lists them for people.
constexpr Shortcut SHORTCUTS[] = {
    {"win.open", {"<Control>o"}},
    {"app.new-window", {"<Control>n"}},
    {"win.close", {"<Control>w"}},
    {"app.quit", {"<Control>q"}},
    {"win.show-help-overlay", {"<Control>question", "<Control>slash"}},
    {"win.reload", {"<Control>r"}},
    {"win.search", {"<Control>f"}},
    {"win.find-next", {"<Control>g", "F3"}},
    {"win.find-previous", {"<Control><Shift>g", "<Shift>F3"}},
    {"win.sidebar", {"F9"}},
    {"win.notes", {"F8"}},
    {"win.properties", {"<Alt>Return"}},
    {"win.go-to-cell", {"<Control>l"}},
    {"win.share", {"<Control><Shift>s"}},
    {"win.print", {"<Control>p"}},
    {"win.zoom-in", {"<Control>plus", "<Control>equal", "<Control>KP_Add"}},
    {"win.zoom-out", {"<Control>minus", "<Control>KP_Subtract"}},
    {"win.zoom-original", {"<Control>0", "<Control>KP_0"}},
    {"win.zoom-fit", {"<Control>1"}},
    {"win.zoom-width", {"<Control>2"}},
    {"win.night", {"<Control><Shift>n"}},
    {"win.fullscreen", {"F11"}},
    {"win.present", {"F5"}},
};

} // namespace

Application::Application()
    : mApplication(ADW_APPLICATION(g_object_new(ADW_TYPE_APPLICATION, "application-id", APPLICATION_ID,
                                                "flags", G_APPLICATION_HANDLES_OPEN, "resource-base-path",
                                                "/com/kestrel/office/viewer", nullptr))) {
    GApplication* application = G_APPLICATION(mApplication.get());
    g_signal_connect_swapped(application, "startup", G_CALLBACK(onSignal<&Application::startUp>), this);
    g_signal_connect_swapped(application, "activate", G_CALLBACK(onSignal<&Application::showWindow>), this);
    g_signal_connect_swapped(application, "open", G_CALLBACK(&Application::openAll), this);
    g_application_set_option_context_parameter_string(application, _("[FILE…]"));
    g_application_set_option_context_summary(application, _("Reads texts, spreadsheets and presentations."));
}

Application::~Application() {
    g_signal_handlers_disconnect_by_data(mApplication.get(), this);
}

int Application::run(int argc, char** argv) {
    return g_application_run(G_APPLICATION(mApplication.get()), argc, argv);
}

void Application::startUp() {
    GActionMap* actions = G_ACTION_MAP(mApplication.get());
    addAction(actions, "new-window", G_CALLBACK(onSignal<&Application::newWindow>), this);
    addAction(actions, "about", G_CALLBACK(onSignal<&Application::showAbout>), this);
    addAction(actions, "quit", G_CALLBACK(onSignal<&Application::quit>), this);
    for (const int signal : {SIGHUP, SIGINT, SIGTERM}) {
        g_unix_signal_add(signal, &Application::quitAtSignal, this);
    }
    for (const Shortcut& shortcut : SHORTCUTS) {
        gtk_application_set_accels_for_action(GTK_APPLICATION(mApplication.get()), shortcut.action,
                                              shortcut.keys);
    }
}

void Application::openAll(void* self, GFile** files, int count, const char* /*hint*/) {
    std::for_each(files, files + count, [self](GFile* file) { static_cast<Application*>(self)->open(file); });
}

void Application::open(GFile* file, Window* preferred) {
    const auto has = [file](const auto& window) {
        return !window->isFree() && g_file_equal(window->file(), file) != FALSE;
    };
    if (const auto found = std::find_if(mWindows.begin(), mWindows.end(), has); found != mWindows.end()) {
        gtk_window_present((*found)->window());
    } else if (preferred != nullptr && preferred->isFree()) {
        preferred->show(file);
    } else {
        const auto empty = std::find_if(mWindows.begin(), mWindows.end(),
                                        [](const auto& window) { return window->file() == nullptr; });
        (empty == mWindows.end() ? addWindow() : **empty).show(file);
    }
}

void Application::showWindow() {
    if (mWindows.empty()) {
        addWindow();
    }
    gtk_window_present(activeWindow());
}

Window& Application::addWindow() {
    mWindows.push_back(std::make_unique<Window>(*this));
    Window& window = *mWindows.back();
    gtk_application_add_window(GTK_APPLICATION(mApplication.get()), window.window());
    gtk_window_present(window.window());
    return window;
}

void Application::remove(const Window& window) {
    std::erase_if(mWindows, [&window](const auto& one) { return one.get() == &window; });
}

void Application::showAbout() {
    adw_show_about_window(activeWindow(), "application-name", _("Lectern"), "application-icon",
                          APPLICATION_ID, "version", LECTERN_VERSION, "comments",
                          _("Reads texts, spreadsheets and presentations."), "license-type",
                          GTK_LICENSE_APACHE_2_0,
                          // TRANSLATORS: put your name here
                          "translator-credits", _("translator-credits"), nullptr);
}

gboolean Application::quitAtSignal(void* self) {
    static_cast<Application*>(self)->quit();
    return G_SOURCE_CONTINUE;
}

// Each window keeps its place when it goes.
void Application::quit() {
    mWindows.clear();
}

} // namespace lectern::viewer
