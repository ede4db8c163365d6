// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/Exporter.h"

#include "client/viewer/Ui.h"

#include <utility>

namespace lectern::viewer {

void Exporter::start(LecternExportFormat format, const std::string& name, Done done) {
    cancel();
    GLibHolder<GError> error;
    mFile = PrivateFile::create(name, out(error));
    if (mFile == nullptr) {
        mShell.say(error->message);
        return;
    }
    mDone = std::move(done);
    showToast();
    lectern_document_export_async(mShell.document(), format, mFile->file(), mPending.get(),
                                  asyncDone<&Exporter::finish>, this);
}

void Exporter::finish(GObject* document, GAsyncResult* result) {
    GLibHolder<GError> error;
    lectern_document_export_finish(LECTERN_DOCUMENT(document), result, out(error));
    auto file = std::move(mFile);
    const auto done = std::move(mDone);
    cancel();
    if (error == nullptr) {
        done(std::move(file));
    } else if (g_error_matches(error.get(), LECTERN_SERVICE_ERROR, LECTERN_SERVICE_ERROR_NOTHING_THERE) !=
               FALSE) {
        mShell.say(_("This document has nothing to export"));
    } else {
        mShell.say(_("The document could not be exported"));
    }
}

void Exporter::showToast() {
    const Ui ui("export-toast.ui");
    mToast.reset(ADW_TOAST(g_object_ref(ui.object("toast"))));
    ui.connect("toast", "button-clicked", G_CALLBACK(onSignal<&Exporter::cancel>), this);
    adw_toast_overlay_add_toast(mShell.toasts(), ADW_TOAST(g_object_ref(mToast.get())));
}

void Exporter::cancel() {
    mPending.giveUp();
    mFile.reset();
    mDone = {};
    if (mToast != nullptr) {
        g_signal_handlers_disconnect_by_data(mToast.get(), this);
        adw_toast_dismiss(mToast.get());
        mToast.reset();
    }
}

} // namespace lectern::viewer
