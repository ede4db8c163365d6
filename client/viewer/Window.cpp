// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/Window.h"

#include "client/viewer/Application.h"
#include "client/viewer/Pending.h"
#include "client/viewer/Texts.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace lectern::viewer {

namespace {

// By its name: its contents tell only later.
bool seemsText(GFile* file) {
    const GLibHolder<char> type(g_content_type_guess(nameOf(file).c_str(), nullptr, 0, nullptr));
    constexpr const char* OTHERS[] = {"spreadsheet",   "excel",        "csv",
                                      "tab-separated", "presentation", "powerpoint"};
    return std::none_of(std::begin(OTHERS), std::end(OTHERS),
                        [&type](const char* other) { return std::strstr(type.get(), other) != nullptr; });
}

} // namespace

Window::Window(Application& application)
    : mApplication(application), mView(LECTERN_VIEW(lectern_view_new())),
      mOpener(application.connection(), mView, *this), mBookmark(*this, application.history()),
      mWelcome(*this, application.history()),
      mPassword([this](const std::string& password) { openAgain(password); }) {
    adw_clamp_scrollable_set_child(ADW_CLAMP_SCROLLABLE(mUi.object("clamp")), GTK_WIDGET(mView));
    mUi.connect("window", "close-request", G_CALLBACK(&Window::closed), this);
    addActions();
    acceptDrops();
    fillPlaces();
    showPage("welcome");
}

// Its widgets go before the parts that hear from them.
Window::~Window() {
    mBookmark.keep();
    mOpener.close();
    gtk_window_destroy(window());
}

// Parts come here: one line each.
void Window::fillPlaces() {
    auto* pages = GTK_STACK(mUi.object("pages"));
    gtk_stack_add_named(pages, mWelcome.widget(), "welcome");
    gtk_stack_add_named(pages, mProblem.widget(), "problem");
    gtk_stack_add_named(pages, mPassword.widget(), "password");
    overlay(mOpening.widget());
    fill("zoom", mZoomActions.widget());
    fill("search", mSearchBar.widget());
    fill("sidebar", mSideBar.widget());
    fill("notes", mNotesPane.widget());
    gtk_revealer_set_child(GTK_REVEALER(mUi.object("bottom")), mSheetBar.widget());
    overlay(mSearchBar.marks());
    overlay(mPageIndicator.widget());
}

gboolean Window::closed(void* self) {
    auto* window = static_cast<Window*>(self);
    window->mApplication.remove(*window);
    return GDK_EVENT_STOP;
}

void Window::addActions() {
    addAction(actions(), "open", G_CALLBACK(onSignal<&Window::askForFile>), this);
    addAction(actions(), "close", G_CALLBACK(onSignal<&Window::close>), this);
    addAction(actions(), "reload", G_CALLBACK(onSignal<&Window::reload>), this);
    addAction(actions(), "cancel-open", G_CALLBACK(onSignal<&Window::cancelOpen>), this);
    gtk_application_window_set_help_overlay(GTK_APPLICATION_WINDOW(window()),
                                            GTK_SHORTCUTS_WINDOW(Ui("shortcuts.ui").object("shortcuts")));
}

void Window::acceptDrops() {
    GtkDropTarget* target = gtk_drop_target_new(GDK_TYPE_FILE_LIST, GDK_ACTION_COPY);
    g_signal_connect_swapped(target, "drop", G_CALLBACK(&Window::drop), this);
    gtk_widget_add_controller(GTK_WIDGET(window()), GTK_EVENT_CONTROLLER(target));
}

gboolean Window::drop(void* self, const GValue* value) {
    auto* files = static_cast<GSList*>(g_value_get_boxed(value));
    for (GSList* file = files; file != nullptr; file = file->next) {
        static_cast<Window*>(self)->open(G_FILE(file->data));
    }
    return files != nullptr ? TRUE : FALSE;
}

LecternDocument* Window::document() {
    LecternDocument* shown = lectern_view_get_document(mView);
    return shown != nullptr && lectern_document_get_opened(shown) != FALSE ? shown : nullptr;
}

void Window::say(const std::string& message) {
    const GLibHolder<char> title(g_markup_escape_text(message.c_str(), -1));
    adw_toast_overlay_add_toast(toasts(), adw_toast_new(title.get()));
}

void Window::open(GFile* file) {
    mApplication.open(file, this);
}

void Window::show(GFile* file) {
    mOpener.open(file);
    showOpening();
}

void Window::openAgain(std::optional<std::string> password) {
    if (mOpener.file() != nullptr) {
        mBookmark.keep();
        mOpener.openAgain(std::move(password));
        showOpening();
    }
}

void Window::cancelOpen() {
    mOpener.close();
    showPage("welcome");
}

void Window::opened() {
    limitWidth(lectern_document_get_kind(document()) == LECTERN_DOCUMENT_KIND_TEXT);
    mBookmark.restore([this] {
        showPage("document");
        gtk_widget_grab_focus(GTK_WIDGET(mView));
    });
}

void Window::failed(const GError& error) {
    if (asksForPassword(error)) {
        showPage("password");
        mPassword.show(nameOf(file()), error.code == LECTERN_DOCUMENT_ERROR_WRONG_PASSWORD);
    } else {
        showPage("problem");
        mProblem.show(error);
    }
}

// Covers the view, which has its size already, so that the document opens at that size.
void Window::showOpening() {
    showPage("document");
    limitWidth(seemsText(file()));
    mOpening.show(nameOf(file()));
    showTools(false);
}

// Longer lines are hard to read.
void Window::limitWidth(bool isText) {
    constexpr int LONGEST_LINE = 800;
    auto* clamp = ADW_CLAMP_SCROLLABLE(mUi.object("clamp"));
    adw_clamp_scrollable_set_maximum_size(clamp, isText ? LONGEST_LINE : G_MAXINT);
    adw_clamp_scrollable_set_tightening_threshold(clamp, isText ? LONGEST_LINE : G_MAXINT);
}

void Window::showTools(bool shown) {
    for (const char* tool : {"sidebar-button", "tools"}) {
        gtk_widget_set_visible(mUi.widget(tool), shown ? TRUE : FALSE);
    }
}

void Window::showPage(const char* name) {
    gtk_stack_set_visible_child_name(GTK_STACK(mUi.object("pages")), name);
    mOpening.hide();
    showTools(std::strcmp(name, "document") == 0);
    const std::string title = file() != nullptr ? nameOf(file()) : _("Lectern");
    const std::string folder = file() != nullptr ? folderOf(file()) : "";
    gtk_window_set_title(window(), title.c_str());
    adw_window_title_set_title(ADW_WINDOW_TITLE(mUi.object("title")), title.c_str());
    adw_window_title_set_subtitle(ADW_WINDOW_TITLE(mUi.object("title")), folder.c_str());
}

} // namespace lectern::viewer
