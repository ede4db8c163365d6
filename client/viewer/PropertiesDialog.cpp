// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/PropertiesDialog.h"

#include "client/viewer/Texts.h"

namespace lectern::viewer {

namespace {

// A property that the document does not have has no row, and a group without rows stays hidden.
void addRow(AdwPreferencesGroup* group, const char* name, const std::string& text) {
    const GLibHolder<char> value(g_strstrip(g_strdup(text.c_str())));
    if (*value == '\0') {
        return;
    }
    gtk_widget_set_visible(GTK_WIDGET(group), TRUE);
    GtkWidget* row = adw_action_row_new();
    adw_preferences_row_set_use_markup(ADW_PREFERENCES_ROW(row), FALSE);
    adw_preferences_row_set_title(ADW_PREFERENCES_ROW(row), name);
    adw_action_row_set_subtitle(ADW_ACTION_ROW(row), value.get());
    adw_action_row_set_subtitle_lines(ADW_ACTION_ROW(row), 0);
    adw_preferences_group_add(group, row);
}

void addFile(AdwPreferencesGroup* group, GFile* file) {
    addRow(group, _("Name"), nameOf(file));
    addRow(group, _("Folder"), folderOf(file));
    constexpr const char* ASKED = G_FILE_ATTRIBUTE_STANDARD_SIZE "," G_FILE_ATTRIBUTE_STANDARD_CONTENT_TYPE;
    const GLibHolder<GFileInfo> info(
        g_file_query_info(file, ASKED, G_FILE_QUERY_INFO_NONE, nullptr, nullptr));
    if (info != nullptr) {
        const GLibHolder<char> kind(g_content_type_get_description(g_file_info_get_content_type(info.get())));
        addRow(group, _("Type"), kind.get());
        const GLibHolder<char> size(g_format_size(static_cast<guint64>(g_file_info_get_size(info.get()))));
        addRow(group, _("Size"), size.get());
    }
}

void addProperties(AdwPreferencesGroup* group, const LecternProperties& properties) {
    addRow(group, _("Title"), properties.title);
    addRow(group, _("Author"), properties.author);
    addRow(group, _("Description"), properties.description);
    addRow(group, _("Created"), properties.created);
    addRow(group, _("Last Saved"), properties.saved);
    addRow(group, _("Words"), properties.n_words < 0 ? "" : std::to_string(properties.n_words));
}

} // namespace

PropertiesDialog::PropertiesDialog(Shell& shell)
    : Part(shell), mProperties(addAction<&PropertiesDialog::ask>("properties", this)) {
    show(nullptr);
}

void PropertiesDialog::show(LecternDocument* document) {
    g_simple_action_set_enabled(mProperties, document != nullptr ? TRUE : FALSE);
}

void PropertiesDialog::ask() {
    lectern_document_get_properties_async(
        document(), mPending.get(),
        answered<lectern_document_get_properties_finish, &PropertiesDialog::present>, this);
}

void PropertiesDialog::present(LecternProperties* properties) {
    const Ui ui("properties-dialog.ui");
    addProperties(ADW_PREFERENCES_GROUP(ui.object("document")), *properties);
    lectern_properties_free(properties);
    addFile(ADW_PREFERENCES_GROUP(ui.object("file")), lectern_document_get_file(document()));
    auto* dialog = GTK_WINDOW(ui.object("dialog"));
    gtk_window_set_transient_for(dialog, shell().window());
    gtk_window_present(dialog);
}

} // namespace lectern::viewer
