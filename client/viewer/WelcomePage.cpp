// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/WelcomePage.h"

#include "client/viewer/Pending.h"
#include "client/viewer/Texts.h"

#include <algorithm>
#include <memory>

namespace lectern::viewer {

namespace {

constexpr size_t MOST_ROWS = 12;
constexpr const char* FILE_OF_ROW = "lectern-file";

// Files that have gone are not offered. Those on other machines are: a look at them could
// take long.
bool isThere(GFile* file) {
    return g_file_is_native(file) == FALSE || g_file_query_exists(file, nullptr) != FALSE;
}

std::string timeText(gint64 seconds) {
    GDateTime* then = g_date_time_new_from_unix_local(seconds);
    GDateTime* now = g_date_time_new_now_local();
    std::string text = then != nullptr ? whenText(then, now) : "";
    g_clear_pointer(&then, g_date_time_unref);
    g_date_time_unref(now);
    return text;
}

} // namespace

WelcomePage::WelcomePage(Shell& shell, const History& history) : mShell(shell), mHistory(history) {
    mUi.connect("page", "map", G_CALLBACK(onSignal<&WelcomePage::fill>), this);
    mUi.connect("clear", "clicked", G_CALLBACK(onSignal<&WelcomePage::clear>), this);
    mUi.connect("list", "row-activated", G_CALLBACK(&WelcomePage::openRow), this);
}

void WelcomePage::fill() {
    auto* list = GTK_LIST_BOX(mUi.object("list"));
    while (GtkListBoxRow* row = gtk_list_box_get_row_at_index(list, 0)) {
        gtk_list_box_remove(list, GTK_WIDGET(row));
    }
    const auto entries = mHistory.entries();
    for (const History::Entry& entry : entries) {
        add(entry);
    }
    const bool any = gtk_list_box_get_row_at_index(list, 0) != nullptr;
    gtk_widget_set_visible(mUi.widget("recent"), any ? TRUE : FALSE);
}

void WelcomePage::add(const History::Entry& entry) {
    auto* list = GTK_LIST_BOX(mUi.object("list"));
    GFile* file = g_file_new_for_uri(entry.uri.c_str());
    const GLibHolder<GFile> owner(file);
    if (gtk_list_box_get_row_at_index(list, static_cast<int>(MOST_ROWS) - 1) != nullptr || !isThere(file)) {
        return;
    }
    GtkWidget* row = adw_action_row_new();
    adw_preferences_row_set_use_markup(ADW_PREFERENCES_ROW(row), FALSE);
    adw_preferences_row_set_title(ADW_PREFERENCES_ROW(row), nameOf(file).c_str());
    adw_action_row_set_subtitle(ADW_ACTION_ROW(row),
                                (folderOf(file) + " · " + timeText(entry.opened)).c_str());
    adw_action_row_set_title_lines(ADW_ACTION_ROW(row), 1);
    adw_action_row_set_subtitle_lines(ADW_ACTION_ROW(row), 1);
    adw_action_row_set_icon_name(ADW_ACTION_ROW(row), "x-office-document-symbolic");
    gtk_list_box_row_set_activatable(GTK_LIST_BOX_ROW(row), TRUE);
    g_object_set_data_full(G_OBJECT(row), FILE_OF_ROW, g_object_ref(file), g_object_unref);
    gtk_list_box_append(list, row);
}

void WelcomePage::clear() {
    mHistory.clear();
    fill();
}

void WelcomePage::openRow(void* self, GtkListBoxRow* row) {
    static_cast<WelcomePage*>(self)->mShell.open(G_FILE(g_object_get_data(G_OBJECT(row), FILE_OF_ROW)));
}

} // namespace lectern::viewer
