// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/PresenterConsole.h"

#include <algorithm>

namespace lectern::viewer {

namespace {

constexpr int PICTURE_WIDTH = 640; // of the slides, in device pixels

// The height of a picture of a whole slide. At the fit the document is one slide.
int heightOfSlides(LecternDocument* document) {
    const auto width = lectern_document_get_document_width(document);
    const auto height = lectern_document_get_document_height(document);
    return width > 0
               ? static_cast<int>(std::clamp<gint64>(PICTURE_WIDTH * height / width, 1, 2 * PICTURE_WIDTH))
               : PICTURE_WIDTH * 3 / 4;
}

} // namespace

PresenterConsole::PresenterConsole(LecternDocument* document, GActionGroup* actions)
    : mDocument(LECTERN_DOCUMENT(g_object_ref(document))), mClock(g_timeout_add_seconds(1, onSecond, this)) {
    gtk_widget_insert_action_group(mUi.widget("console"), "present", actions);
    g_signal_connect_swapped(document, "notify::part", G_CALLBACK(onSignal<&PresenterConsole::update>), this);
    showTime();
    update();
}

PresenterConsole::~PresenterConsole() {
    g_signal_handlers_disconnect_by_data(mDocument.get(), this);
    g_source_remove(mClock);
    gtk_window_destroy(window());
}

void PresenterConsole::update() {
    mPending.giveUp();
    const int slide = lectern_document_get_part(mDocument.get());
    const int slides = lectern_document_get_n_parts(mDocument.get());
    // TRANSLATORS: the number of a slide, and how many there are
    const GLibHolder<char> place(g_strdup_printf(_("%d of %d"), slide + 1, slides));
    gtk_label_set_label(mUi.label("place"), place.get());
    lectern_document_get_note_async(mDocument.get(), mPending.get(), asyncDone<&PresenterConsole::showNote>,
                                    this);
    request("current", slide, asyncDone<&PresenterConsole::showCurrent>);
    request("next", slide + 1, asyncDone<&PresenterConsole::showNext>);
}

void PresenterConsole::request(const char* picture, int slide, GAsyncReadyCallback done) {
    if (slide < lectern_document_get_n_parts(mDocument.get())) {
        lectern_document_get_thumbnail_async(mDocument.get(), slide, PICTURE_WIDTH,
                                             heightOfSlides(mDocument.get()), mPending.get(), done, this);
    } else {
        gtk_picture_set_paintable(GTK_PICTURE(mUi.object(picture)), nullptr);
    }
}

void PresenterConsole::showSlide(const char* picture, GObject* document, GAsyncResult* result) {
    GBytes* pixels = lectern_document_get_thumbnail_finish(LECTERN_DOCUMENT(document), result, nullptr);
    if (pixels == nullptr) {
        return;
    }
    constexpr int STRIDE = PICTURE_WIDTH * 4;
    const int height = static_cast<int>(g_bytes_get_size(pixels) / STRIDE);
    const GLibHolder<GdkTexture> texture(
        gdk_memory_texture_new(PICTURE_WIDTH, height, GDK_MEMORY_DEFAULT, pixels, STRIDE));
    gtk_picture_set_paintable(GTK_PICTURE(mUi.object(picture)), GDK_PAINTABLE(texture.get()));
    g_bytes_unref(pixels);
}

void PresenterConsole::showNote(GObject* document, GAsyncResult* result) {
    const GLibHolder<char> note(
        lectern_document_get_note_finish(LECTERN_DOCUMENT(document), result, nullptr));
    gtk_label_set_label(mUi.label("note"), note != nullptr ? note.get() : "");
}

void PresenterConsole::showTime() {
    const auto seconds = static_cast<int>((g_get_monotonic_time() - mStart) / G_USEC_PER_SEC);
    const GLibHolder<char> time(
        g_strdup_printf("%d:%02d:%02d", seconds / 3600, seconds / 60 % 60, seconds % 60));
    gtk_label_set_label(mUi.label("time"), time.get());
}

gboolean PresenterConsole::onSecond(void* self) {
    static_cast<PresenterConsole*>(self)->showTime();
    return G_SOURCE_CONTINUE;
}

} // namespace lectern::viewer
