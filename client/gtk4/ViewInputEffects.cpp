// SPDX-License-Identifier: Apache-2.0
// What contacts do to the document and its selection.
#include "client/gtk4/ViewInput.h"

namespace lectern::gtk4 {

void ViewInput::penDown(Point at) {
    if (LecternDocument* document = mContext.openDocument()) {
        lectern_document_pen_down(document, rounded(at.x), rounded(at.y));
    }
}

void ViewInput::penMove(Point at) {
    if (LecternDocument* document = mContext.openDocument()) {
        lectern_document_pen_move(document, rounded(at.x), rounded(at.y));
    }
}

void ViewInput::penUp(Point at) {
    if (LecternDocument* document = mContext.openDocument()) {
        lectern_document_pen_up(document, rounded(at.x), rounded(at.y));
    }
}

void ViewInput::flick(Point velocity) {
    if (LecternDocument* document = mContext.openDocument()) {
        lectern_document_flick(document, rounded(velocity.x), rounded(velocity.y));
    }
}

void ViewInput::tap(Point at) {
    click(at);
}

void ViewInput::doubleTap(Point at) {
    LecternDocument* document = mContext.openDocument();
    if (document != nullptr && !mContext.isPresenting()) {
        lectern_document_double_click(document, rounded(at.x), rounded(at.y));
    } else {
        tap(at);
    }
}

void ViewInput::holdBegins(Point at) {
    if (mContext.isPresenting()) {
        return;
    }
    mHandles.show(false);
    mSelection.select(LECTERN_SELECT_WORD, at, [this](bool isDone) { mHandles.show(isDone); });
}

void ViewInput::holdMoves(Point at) {
    if (!mHandles.isDragged() && mSelection.exists()) {
        mHandles.extendFromWord();
    }
    mHandles.drag(at);
}

void ViewInput::holdEnds(Point at) {
    mHandles.release();
    if (!mContext.isPresenting()) {
        mMenu.popUp(ViewMenu::By::Touch, at);
    }
}

void ViewInput::pinch(Point centre, double factor, LecternPinchPhase phase) {
    if (LecternDocument* document = mContext.openDocument()) {
        lectern_document_pinch(document, rounded(centre.x), rounded(centre.y), factor, phase);
    }
}

void ViewInput::click(Point at) {
    mHandles.show(false);
    mSelection.clear();
    if (LecternDocument* document = mContext.openDocument()) {
        lectern_document_click(document, rounded(at.x), rounded(at.y));
    }
}

// A word where there is one; on anything else what a double tap does.
void ViewInput::pressTwice(Point at) {
    if (mContext.isPresenting()) {
        click(at);
        return;
    }
    mSelection.select(LECTERN_SELECT_WORD, at, [this, at](bool isDone) {
        if (!isDone) {
            doubleTap(at);
        }
    });
}

void ViewInput::pressThrice(Point at) {
    if (mContext.isPresenting()) {
        click(at);
    } else {
        mSelection.select(LECTERN_SELECT_LINE, at);
    }
}

void ViewInput::dragBegins(Point from) {
    mDragFrom = mDragAt = from;
    mHandles.show(false);
    if (mContext.isPresenting()) {
        mDrag = Drag::Panning;
        penDown(from);
        return;
    }
    mDrag = Drag::Asking;
    mSelection.select(LECTERN_SELECT_WORD, from, [this](bool isDone) {
        if (isDone) {
            mSelection.beginReach({mDragFrom, mDragFrom});
            mSelection.reachTo(mDragAt);
        } else if (mDrag == Drag::Asking) {
            penDown(mDragFrom);
            penMove(mDragAt);
        }
        if (mDrag == Drag::Asking) {
            mDrag = isDone ? Drag::Selecting : Drag::Panning;
        }
    });
}

void ViewInput::dragMoves(Point at) {
    mDragAt = at;
    if (mDrag == Drag::Selecting) {
        mSelection.reachTo(at);
    } else if (mDrag == Drag::Panning) {
        penMove(at);
    }
}

void ViewInput::dragEnds(Point at) {
    dragMoves(at);
    if (mDrag == Drag::Panning) {
        penUp(at);
    }
    mDrag = Drag::None;
}

} // namespace lectern::gtk4
