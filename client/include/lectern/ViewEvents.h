// SPDX-License-Identifier: Apache-2.0
// What the service, and the library itself, tell of an open view.
#pragma once

#include <lectern/FrameBuffer.h>
#include <lectern/Result.h>

#include <functional>

namespace lectern {

// A notification as it crosses the queue.
struct ViewRecord {
    int id = 0;
    int value = 0;
    int extra = 0;
    bool operator==(const ViewRecord&) const = default;
};

// Callbacks, each of which may be left out. All of one document are called one
// after the other on the document's GMainContext, or on one thread of the
// document's where it has none; the first may come before Document::open has
// returned. A callback may call anything of the document; one that takes long
// holds up those behind it, and nothing else.
struct ViewEvents {
    // The view has changed and wants to be painted. Told once for all changes
    // before the call. With onFrame there is nothing to be done about it.
    std::function<void()> onInvalidated;
    // A new picture is in the frame buffer, where it stays until this returns.
    // Where this is set, the library paints by itself: after the open, whenever
    // the view has changed, and after input.
    std::function<void(const FrameBuffer&)> onFrame;
    // A paint that the library asked for by itself has failed.
    std::function<void(const Error&)> onPaintFailed;

    // Word-processing: a tap on a link. The view has opened its note, if any.
    std::function<void()> onLinkTapped;
    // A click that the view had no use for.
    std::function<void()> onClickUnused;
    // Spreadsheets: a tap on a cell with a comment, which excel::getLastComment tells.
    std::function<void()> onCommentTapped;
    // Spreadsheets: one column is selected; a row, or several rows or columns are.
    std::function<void()> onColumnSelected;
    std::function<void()> onTracksSelected;
    // Spreadsheets: a stroke in resize mode has ended.
    std::function<void()> onTrackResized;
    // Presentations: the slide now shown, from 0.
    std::function<void(int slide)> onSlideChanged;
    // The document has opened, or was opened again: 0, or the module's code.
    std::function<void(int result)> onOpened;

    // Every notification as it came, before its own callback; also those that
    // this version of the library does not know.
    std::function<void(const ViewRecord&)> onRecord;

    // The service has stopped, was idle or has crashed: calls fail with
    // Error::Kind::Gone until Document::reopen has brought the view back.
    std::function<void()> onServiceGone;
};

} // namespace lectern
