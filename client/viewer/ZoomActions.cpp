// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/ZoomActions.h"

#include <cmath>

namespace lectern::viewer {

ZoomActions::ZoomActions(Shell& shell)
    : Part(shell), mIn(addAction<&ZoomActions::zoomIn>("zoom-in", this)),
      mOut(addAction<&ZoomActions::zoomOut>("zoom-out", this)),
      mOthers{addAction<&ZoomActions::zoomToFit>("zoom-fit", this),
              addAction<&ZoomActions::zoomToWidth>("zoom-width", this),
              addAction<&ZoomActions::zoomToOriginal>("zoom-original", this)} {
    for (const char* signal : {"notify::zoom", "notify::smallest-zoom", "notify::largest-zoom"}) {
        onDocument<&ZoomActions::update>(signal, this);
    }
    show(document());
}

void ZoomActions::show(LecternDocument* document) {
    for (GSimpleAction* action : mOthers) {
        g_simple_action_set_enabled(action, document != nullptr);
    }
    update();
}

void ZoomActions::update() {
    LecternDocument* shown = document();
    const double zoom = shown != nullptr ? lectern_document_get_zoom(shown) : 1;
    g_simple_action_set_enabled(mIn, shown != nullptr && zoom < lectern_document_get_largest_zoom(shown));
    g_simple_action_set_enabled(mOut, shown != nullptr && zoom > lectern_document_get_smallest_zoom(shown));
    // TRANSLATORS: the zoom in percent
    const GLibHolder<char> percentage(g_strdup_printf(_("%ld %%"), std::lround(zoom * 100)));
    gtk_label_set_label(mUi.label("percentage"), percentage.get());
}

void ZoomActions::zoomToOriginal() {
    lectern_document_zoom_to_async(document(), 1, -1, -1, mPending.get(), asyncDone<&ZoomActions::zoomed>,
                                   this);
}

void ZoomActions::zoomed(GObject* document, GAsyncResult* result) {
    GLibHolder<GError> error;
    if (lectern_document_zoom_to_finish(LECTERN_DOCUMENT(document), result, out(error)) == FALSE) {
        complain(error.get());
    }
}

} // namespace lectern::viewer
