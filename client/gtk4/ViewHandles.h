// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/gtk4/ViewSelection.h"

namespace lectern::gtk4 {

// The two handles below a selection that fingers drag.
class ViewHandles {
public:
    ViewHandles(ViewContext& context, ViewSelection& selection);

    // They show while there is a selection on the screen.
    void show(bool isShown);

    // Takes the handle at a point; false if there is none.
    bool grab(Point at);
    // Goes on with a selected word: what the finger reaches is added to it.
    void extendFromWord();
    bool isDragged() const { return mIsDragged; }
    void drag(Point at);
    void release();

    void snapshot(GtkSnapshot* snapshot, const PixelGrid& grid) const;

private:
    // Points of the picture: the foot of the selection's first and last rectangle.
    Point start() const;
    Point end() const;
    bool areShown() const { return mIsShown && !mSelection.rectangles().empty(); }

    ViewContext& mContext;
    ViewSelection& mSelection;
    bool mIsShown = false;
    bool mIsDragged = false;
    Point mGrip; // from the finger to the middle of the line
};

} // namespace lectern::gtk4
