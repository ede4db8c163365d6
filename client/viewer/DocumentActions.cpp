// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/DocumentActions.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <utility>

namespace lectern::viewer {

DocumentActions::DocumentActions(Shell& shell)
    : Part(shell), mCopy(addAction<&DocumentActions::copy>("copy", this)),
      mOthers{addAction<&DocumentActions::selectAll>("select-all", this),
              addAction<&DocumentActions::saveCopy>("share", this),
              addAction<&DocumentActions::mail>("mail", this),
              addAction<&DocumentActions::exportPdf>("export-pdf", this),
              addAction<&DocumentActions::exportText>("export-text", this),
              addAction<&DocumentActions::print>("print", this)},
      mSelections(
          onView(shell, "notify::has-selection", G_CALLBACK(onSignal<&DocumentActions::enableCopy>), this)),
      mExporter(shell), mPrinting(shell) {
    addKeys();
    show(document());
}

// The keys of the clipboard are not those of the application, which would take them
// from the entries of the window.
void DocumentActions::addKeys() {
    GtkEventController* keys = gtk_shortcut_controller_new();
    constexpr std::pair<const char*, const char*> KEYS[] = {
        {"<Control>c|<Control>Insert", "action(win.copy)"}, {"<Control>a", "action(win.select-all)"}};
    for (const auto& [trigger, action] : KEYS) {
        gtk_shortcut_controller_add_shortcut(GTK_SHORTCUT_CONTROLLER(keys),
                                             gtk_shortcut_new(gtk_shortcut_trigger_parse_string(trigger),
                                                              gtk_shortcut_action_parse_string(action)));
    }
    gtk_widget_add_controller(GTK_WIDGET(shell().window()), keys);
}

void DocumentActions::show(LecternDocument* document) {
    for (GSimpleAction* action : mOthers) {
        g_simple_action_set_enabled(action, document != nullptr);
    }
    enableCopy();
    if (document == nullptr) {
        mExporter.cancel();
    }
}

// Sheets always have something to copy: the cell that was tapped last.
void DocumentActions::enableCopy() {
    LecternDocument* shown = document();
    const bool hasCells =
        shown != nullptr && lectern_document_get_kind(shown) == LECTERN_DOCUMENT_KIND_SPREADSHEET;
    g_simple_action_set_enabled(
        mCopy, hasCells || (shown != nullptr && lectern_view_get_has_selection(shell().view()) != FALSE));
}

void DocumentActions::copy() {
    if (lectern_view_get_has_selection(shell().view()) != FALSE) {
        lectern_view_copy(shell().view());
    } else {
        lectern_document_get_selection_async(document(), mPending.get(),
                                             asyncDone<&DocumentActions::copyCells>, this);
    }
}

// What was selected in the headers of the sheet.
void DocumentActions::copyCells(GObject* document, GAsyncResult* result) {
    LecternSelection* selection =
        lectern_document_get_selection_finish(LECTERN_DOCUMENT(document), result, nullptr);
    if (selection != nullptr && *selection->text != '\0') {
        gdk_clipboard_set_text(gtk_widget_get_clipboard(GTK_WIDGET(shell().view())), selection->text);
    } else {
        lectern_document_get_cell_async(LECTERN_DOCUMENT(document), -1, -1, mPending.get(),
                                        asyncDone<&DocumentActions::copyCell>, this);
    }
    g_clear_pointer(&selection, lectern_selection_free);
}

void DocumentActions::copyCell(GObject* document, GAsyncResult* result) {
    GLibHolder<GError> error;
    LecternCell* cell = lectern_document_get_cell_finish(LECTERN_DOCUMENT(document), result, out(error));
    if (cell != nullptr) {
        gdk_clipboard_set_text(gtk_widget_get_clipboard(GTK_WIDGET(shell().view())), cell->text);
        lectern_cell_free(cell);
    } else {
        complain(error.get());
    }
}

void DocumentActions::saveCopy() {
    GFile* file = lectern_document_get_file(document());
    const GLibHolder<char> name(g_file_get_basename(file));
    choose(_("Save a Copy"), name.get(),
           [this, source = std::shared_ptr<GFile>(G_FILE(g_object_ref(file)), g_object_unref)](
               GFile* target) { copyFile(source.get(), target); });
}

void DocumentActions::mail() {
    GFile* file = lectern_document_get_file(document());
    const GLibHolder<char> path(g_file_get_path(file));
    const GLibHolder<char> name(g_file_get_basename(file));
    const int attachment = path != nullptr ? open(path.get(), O_RDONLY | O_CLOEXEC) : -1;
    if (attachment < 0) {
        shell().say(_("The file cannot be read any more"));
        return;
    }
    const GLibHolder<GUnixFDList> descriptors(g_unix_fd_list_new());
    const int handle = g_unix_fd_list_append(descriptors.get(), attachment, nullptr);
    close(attachment);
    GVariantBuilder options;
    g_variant_builder_init(&options, G_VARIANT_TYPE_VARDICT);
    g_variant_builder_add(&options, "{sv}", "handle_token", g_variant_new_string(mMail.newToken()));
    g_variant_builder_add(&options, "{sv}", "subject", g_variant_new_string(name.get()));
    g_variant_builder_add(&options, "{sv}", "attachment_fds",
                          g_variant_new_fixed_array(G_VARIANT_TYPE_HANDLE, &handle, 1, sizeof handle));
    mMail.request("Email", "ComposeEmail", g_variant_new("(sa{sv})", "", &options), descriptors.get(),
                  [this](Portal::Answer answer, GVariant* /*results*/) {
                      if (answer == Portal::Answer::NoPortal) {
                          shell().say(_("No mail program answers. Save a copy and attach it to a mail"));
                      }
                  });
}

void DocumentActions::exportAs(LecternExportFormat format, const char* extension) {
    const std::string name = nameWith(extension);
    choose(_("Export"), name, [this, format, name](GFile* target) {
        mExporter.start(format, name,
                        [this, target = std::shared_ptr<GFile>(G_FILE(g_object_ref(target)), g_object_unref)](
                            std::unique_ptr<PrivateFile> exported) {
                            mExported = std::move(exported);
                            copyFile(mExported->file(), target.get());
                        });
    });
}

void DocumentActions::print() {
    const std::string name = nameWith(".pdf");
    mExporter.start(LECTERN_EXPORT_PDF, name, [this, name](std::unique_ptr<PrivateFile> pdf) {
        mPrinting.print(std::move(pdf), name);
    });
}

std::string DocumentActions::nameWith(const char* extension) const {
    const GLibHolder<char> name(g_file_get_basename(lectern_document_get_file(document())));
    return std::filesystem::path(name.get()).replace_extension(extension).string();
}

void DocumentActions::choose(const char* title, const std::string& name, Chosen chosen) {
    mChosen = std::move(chosen);
    mChooser.reset(
        gtk_file_chooser_native_new(title, shell().window(), GTK_FILE_CHOOSER_ACTION_SAVE, nullptr, nullptr));
    gtk_native_dialog_set_modal(GTK_NATIVE_DIALOG(mChooser.get()), TRUE);
    gtk_file_chooser_set_current_name(GTK_FILE_CHOOSER(mChooser.get()), name.c_str());
    g_signal_connect(mChooser.get(), "response", G_CALLBACK(onChooserResponse), this);
    gtk_native_dialog_show(GTK_NATIVE_DIALOG(mChooser.get()));
}

void DocumentActions::onChooserResponse(GtkNativeDialog* /*dialog*/, int response, void* self) {
    auto& actions = *static_cast<DocumentActions*>(self);
    const GLibHolder<GtkFileChooserNative> chooser = std::move(actions.mChooser);
    const Chosen chosen = std::move(actions.mChosen);
    if (response == GTK_RESPONSE_ACCEPT && actions.document() != nullptr) {
        const GLibHolder<GFile> target(gtk_file_chooser_get_file(GTK_FILE_CHOOSER(chooser.get())));
        chosen(target.get());
    }
}

void DocumentActions::copyFile(GFile* source, GFile* target) {
    g_file_copy_async(source, target, G_FILE_COPY_OVERWRITE, G_PRIORITY_DEFAULT, mCopying.get(), nullptr,
                      nullptr, asyncDone<&DocumentActions::copied>, this);
}

void DocumentActions::copied(GObject* source, GAsyncResult* result) {
    GLibHolder<GError> error;
    g_file_copy_finish(G_FILE(source), result, out(error));
    shell().say(error == nullptr ? std::string(_("Saved")) : error->message);
    mExported.reset();
}

} // namespace lectern::viewer
