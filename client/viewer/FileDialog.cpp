// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/FileDialog.h"

#include "client/viewer/MimeTypes.h"

namespace lectern::viewer {

namespace {

GLibHolder<GtkFileFilter> newFilter(const char* name) {
    GLibHolder<GtkFileFilter> filter(gtk_file_filter_new());
    gtk_file_filter_set_name(filter.get(), name);
    return filter;
}

} // namespace

FileDialog::FileDialog(Shell& shell) : mShell(shell) {}

void FileDialog::show() {
    mChooser.reset(gtk_file_chooser_native_new(_("Open Documents"), mShell.window(),
                                               GTK_FILE_CHOOSER_ACTION_OPEN, nullptr, nullptr));
    auto* chooser = GTK_FILE_CHOOSER(mChooser.get());
    gtk_file_chooser_set_select_multiple(chooser, TRUE);
    const auto documents = newFilter(_("Documents"));
    for (const char* type : MIME_TYPES) {
        gtk_file_filter_add_mime_type(documents.get(), type);
    }
    const auto all = newFilter(_("All Files"));
    gtk_file_filter_add_pattern(all.get(), "*");
    gtk_file_chooser_add_filter(chooser, documents.get());
    gtk_file_chooser_add_filter(chooser, all.get());
    g_signal_connect_swapped(chooser, "response", G_CALLBACK(&FileDialog::answer), this);
    gtk_native_dialog_set_modal(GTK_NATIVE_DIALOG(chooser), TRUE);
    gtk_native_dialog_show(GTK_NATIVE_DIALOG(chooser));
}

void FileDialog::answer(void* self, int response) {
    if (response == GTK_RESPONSE_ACCEPT) {
        static_cast<FileDialog*>(self)->openChosen();
    }
}

void FileDialog::openChosen() {
    const GLibHolder<GListModel> files(gtk_file_chooser_get_files(GTK_FILE_CHOOSER(mChooser.get())));
    for (guint index = 0; index < g_list_model_get_n_items(files.get()); ++index) {
        const GLibHolder<GFile> file(G_FILE(g_list_model_get_item(files.get(), index)));
        mShell.open(file.get());
    }
}

} // namespace lectern::viewer
