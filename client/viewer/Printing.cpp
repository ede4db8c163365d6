// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/Printing.h"

#include <fcntl.h>
#include <glib/gi18n.h>
#include <unistd.h>

#include <utility>

namespace lectern::viewer {

namespace {

// Keeps the PDF until the job has read it.
void onJobSent(GtkPrintJob* /*job*/, void* /*pdf*/, const GError* error) {
    if (error != nullptr) {
        g_warning("%s", error->message);
    }
}

void removePdf(void* pdf) {
    delete static_cast<PrivateFile*>(pdf);
}

} // namespace

Printing::~Printing() {
    if (mDialog != nullptr) {
        gtk_window_destroy(GTK_WINDOW(mDialog));
    }
}

void Printing::print(std::unique_ptr<PrivateFile> pdf, const std::string& title) {
    mPdf = std::move(pdf);
    mTitle = title;
    const GLibHolder<GtkPrintSettings> settings(gtk_print_settings_new());
    const GLibHolder<GtkPageSetup> setup(gtk_page_setup_new());
    GVariantBuilder options;
    g_variant_builder_init(&options, G_VARIANT_TYPE_VARDICT);
    g_variant_builder_add(&options, "{sv}", "handle_token", g_variant_new_string(mPortal.newToken()));
    mPortal.request("Print", "PreparePrint",
                    g_variant_new("(ss@a{sv}@a{sv}a{sv})", "", mTitle.c_str(),
                                  gtk_print_settings_to_gvariant(settings.get()),
                                  gtk_page_setup_to_gvariant(setup.get()), &options),
                    nullptr, [this](Portal::Answer answer, GVariant* results) { prepared(answer, results); });
}

void Printing::prepared(Portal::Answer answer, GVariant* results) {
    guint32 preparation = 0;
    if (answer == Portal::Answer::NoPortal) {
        showDialog();
    } else if (answer == Portal::Answer::Granted &&
               g_variant_lookup(results, "token", "u", &preparation) != FALSE) {
        send(preparation);
    } else {
        mPdf.reset();
    }
}

// preparation: the portal's number of the printer and the settings that were chosen.
void Printing::send(guint32 preparation) {
    const GLibHolder<GUnixFDList> descriptors(g_unix_fd_list_new());
    const int file = open(g_file_peek_path(mPdf->file()), O_RDONLY | O_CLOEXEC);
    const int handle = g_unix_fd_list_append(descriptors.get(), file, nullptr);
    close(file);
    mPdf.reset(); // the descriptor keeps what it holds
    GVariantBuilder options;
    g_variant_builder_init(&options, G_VARIANT_TYPE_VARDICT);
    g_variant_builder_add(&options, "{sv}", "handle_token", g_variant_new_string(mPortal.newToken()));
    g_variant_builder_add(&options, "{sv}", "token", g_variant_new_uint32(preparation));
    mPortal.request("Print", "Print", g_variant_new("(ssha{sv})", "", mTitle.c_str(), handle, &options),
                    descriptors.get(), [this](Portal::Answer answer, GVariant* /*results*/) {
                        if (answer == Portal::Answer::NoPortal) {
                            mShell.say(_("The document could not be printed"));
                        }
                    });
}

void Printing::showDialog() {
    if (mDialog != nullptr) {
        gtk_window_destroy(GTK_WINDOW(mDialog));
    }
    mDialog = GTK_PRINT_UNIX_DIALOG(gtk_print_unix_dialog_new(_("Print"), mShell.window()));
    gtk_print_unix_dialog_set_manual_capabilities(mDialog, GTK_PRINT_CAPABILITY_GENERATE_PDF);
    gtk_window_set_modal(GTK_WINDOW(mDialog), TRUE);
    g_signal_connect(mDialog, "response", G_CALLBACK(onDialogResponse), this);
    gtk_window_present(GTK_WINDOW(mDialog));
}

void Printing::onDialogResponse(GtkDialog* dialog, int response, void* self) {
    auto& printing = *static_cast<Printing*>(self);
    if (response == GTK_RESPONSE_OK) {
        printing.sendTo(GTK_PRINT_UNIX_DIALOG(dialog));
    }
    printing.mPdf.reset();
    printing.mDialog = nullptr;
    gtk_window_destroy(GTK_WINDOW(dialog));
}

void Printing::sendTo(GtkPrintUnixDialog* dialog) {
    const GLibHolder<GtkPrintSettings> settings(gtk_print_unix_dialog_get_settings(dialog));
    const GLibHolder<GtkPrintJob> job(
        gtk_print_job_new(mTitle.c_str(), gtk_print_unix_dialog_get_selected_printer(dialog), settings.get(),
                          gtk_print_unix_dialog_get_page_setup(dialog)));
    if (gtk_print_job_set_source_file(job.get(), g_file_peek_path(mPdf->file()), nullptr) == FALSE) {
        mShell.say(_("The document could not be printed"));
        return;
    }
    gtk_print_job_send(job.get(), onJobSent, mPdf.release(), removePdf);
}

} // namespace lectern::viewer
