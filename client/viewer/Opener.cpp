// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/Opener.h"

#include <utility>

namespace lectern::viewer {

void Opener::open(GFile* file) {
    mFile.reset(static_cast<GFile*>(g_object_ref(file)));
    openAgain();
}

void Opener::openAgain(std::optional<std::string> password) {
    stop();
    mPassword = std::move(password);
    mInUse = true;
    mConnection.get(this, [this](LecternService* service, const GError* error) {
        if (service == nullptr) {
            fail(*error);
            return;
        }
        mService.reset(static_cast<LecternService*>(g_object_ref(service)));
        startWhenSized();
    });
}

// A view that has just been shown gets its size at the next frame.
void Opener::startWhenSized() {
    if (gtk_widget_get_width(GTK_WIDGET(mView)) > 0) {
        start();
        return;
    }
    mFrame = gtk_widget_add_tick_callback(
        GTK_WIDGET(mView),
        [](GtkWidget* view, GdkFrameClock* /*clock*/, void* self) -> gboolean {
            if (gtk_widget_get_width(view) == 0) {
                return G_SOURCE_CONTINUE;
            }
            static_cast<Opener*>(self)->mFrame = 0;
            static_cast<Opener*>(self)->start();
            return G_SOURCE_REMOVE;
        },
        this, nullptr);
}

void Opener::start() {
    const GLibHolder<LecternDocument> document(lectern_document_new(mService.get(), mFile.get()));
    lectern_view_set_document(mView, document.get());
    lectern_document_open_async(document.get(), mPassword ? mPassword->c_str() : nullptr, mPending.get(),
                                asyncDone<&Opener::finish>, this);
}

void Opener::finish(GObject* source, GAsyncResult* result) {
    GLibHolder<GError> error;
    if (lectern_document_open_finish(LECTERN_DOCUMENT(source), result, out(error)) == FALSE) {
        fail(*error);
        return;
    }
    mListener.opened();
}

void Opener::fail(const GError& error) {
    stop();
    if (g_error_matches(&error, LECTERN_SERVICE_ERROR, LECTERN_SERVICE_ERROR_BUS) != FALSE) {
        mConnection.drop();
    }
    mListener.failed(error);
}

void Opener::stop() {
    mInUse = false;
    mPending.giveUp();
    mConnection.giveUp(this);
    if (mFrame != 0) {
        gtk_widget_remove_tick_callback(GTK_WIDGET(mView), std::exchange(mFrame, 0));
    }
    lectern_view_set_document(mView, nullptr);
}

void Opener::close() {
    stop();
    mFile.reset();
}

} // namespace lectern::viewer
