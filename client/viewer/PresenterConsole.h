// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Pending.h"
#include "client/viewer/Ui.h"

namespace lectern::viewer {

// The window that only the presenter sees: the slide and the next one, the notes, and
// the time since the start.
class PresenterConsole {
public:
    // actions: "previous", "next", "swap", "stop".
    PresenterConsole(LecternDocument* document, GActionGroup* actions);
    ~PresenterConsole();
    PresenterConsole(const PresenterConsole&) = delete;
    PresenterConsole& operator=(const PresenterConsole&) = delete;

    GtkWindow* window() const { return GTK_WINDOW(mUi.object("console")); }

private:
    void update();
    // Shows a slide in the picture with this id; beyond the last slide, nothing.
    void request(const char* picture, int slide, GAsyncReadyCallback done);
    void showCurrent(GObject* document, GAsyncResult* result) { showSlide("current", document, result); }
    void showNext(GObject* document, GAsyncResult* result) { showSlide("next", document, result); }
    void showSlide(const char* picture, GObject* document, GAsyncResult* result);
    void showNote(GObject* document, GAsyncResult* result);
    void showTime();
    static gboolean onSecond(void* self);

    Ui mUi{"presenter-console.ui"};
    GLibHolder<LecternDocument> mDocument;
    Pending mPending; // calls about the slide that is shown
    gint64 mStart = g_get_monotonic_time();
    guint mClock;
};

} // namespace lectern::viewer
