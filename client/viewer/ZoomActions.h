// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Part.h"

#include <array>

namespace lectern::viewer {

// How large the document is shown, with a row for the menu: out, percentage, in, fit
// width, whole page.
class ZoomActions : public Part {
public:
    explicit ZoomActions(Shell& shell);

    GtkWidget* widget() const { return mUi.widget("zoom"); }

protected:
    void show(LecternDocument* document) override;

private:
    void update();
    void zoomIn() { lectern_view_zoom_in(shell().view()); }
    void zoomOut() { lectern_view_zoom_out(shell().view()); }
    void zoomToFit() { lectern_view_zoom_to_fit(shell().view()); }
    void zoomToWidth() { lectern_view_zoom_to_width(shell().view()); }
    void zoomToOriginal();
    void zoomed(GObject* document, GAsyncResult* result);

    Ui mUi{"zoom-menu.ui"};
    GSimpleAction* mIn;
    GSimpleAction* mOut;
    std::array<GSimpleAction*, 3> mOthers;
};

} // namespace lectern::viewer
