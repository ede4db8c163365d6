// SPDX-License-Identifier: Apache-2.0
// Notifications about an open view, from the service and from the library.
#pragma once

#include <lectern/FrameBuffer.h>
#include <lectern/Result.h>

#include <functional>

namespace lectern {

// A notification as the service sends it through the message queue. docs/formats.md
// lists the ids and their values.
struct ViewRecord {
    int id = 0;
    int value = 0;
    int extra = 0;
    bool operator==(const ViewRecord&) const = default;
};

// Callbacks of one document; each is optional. They run one after the other, on the
// loop of OpenOptions::context or, without one, on a thread of the document. The
// first one can run before Document::open has returned. A callback may call every
// function of the document and may destroy it. A slow callback delays only the
// callbacks after it. Callbacks must not throw.
struct ViewEvents {
    // The view has changed: paint it. One call covers all changes before it. Nothing to
    // do where onFrame is set.
    std::function<void()> onInvalidated;
    // A new picture is in the frame buffer and stays there until this returns. Setting
    // this makes the library paint by itself: after the open, after each change of the
    // view, and after input, at most once in 16 ms.
    std::function<void(const FrameBuffer&)> onFrame;
    // A paint that the library made by itself has failed.
    std::function<void(const Error&)> onPaintFailed;

    // Word-processing: the user tapped a link. If it leads to a note, the view already
    // shows it.
    std::function<void()> onLinkTapped;
    // A click had no effect in the view.
    std::function<void()> onClickUnused;
    // Spreadsheets: the user tapped a cell with a comment; excel::getLastComment returns
    // it.
    std::function<void()> onCommentTapped;
    // Spreadsheets: the user selected one column.
    std::function<void()> onColumnSelected;
    // Spreadsheets: the user selected a row, or several rows or columns.
    std::function<void()> onTracksSelected;
    // Spreadsheets: a drag that resizes a column or row has ended.
    std::function<void()> onTrackResized;
    // Presentations: the view shows this slide, counted from 0.
    std::function<void(int slide)> onSlideChanged;
    // Touch manners: the finger is this many view pixels beyond the right and the bottom
    // edge of the document, below 0 beyond the left and top edge; 0 and 0 when it no longer
    // is. Programs may move the picture a little by it.
    std::function<void(int x, int y)> onOverscroll;
    // Touch manners: the user tapped a cell; touch::getCell returns it. From 0.
    std::function<void(int column, int row)> onCellTapped;
    // Touch manners: this much of an open or reopen is done. Not every kind of document
    // tells it.
    std::function<void(int percent)> onOpenProgress;
    // An open or reopen has ended. result: 0 for success, else the rendering module's
    // code.
    std::function<void(int result)> onOpened;

    // The service cannot bring the document back after its rendering engine has ended. The
    // last picture stays; Document::reopen may open it again. Told once.
    std::function<void(const Error&)> onDocumentLost;

    // Every notification, before its own callback, including those that this version of
    // the library does not know.
    std::function<void(const ViewRecord&)> onRecord;

    // The service has stopped or crashed. Calls fail with Error::Kind::Gone until
    // Document::reopen has succeeded.
    std::function<void()> onServiceGone;
};

} // namespace lectern
