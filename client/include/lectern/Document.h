// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Bus.h>
#include <lectern/FrameBuffer.h>
#include <lectern/StateSegment.h>
#include <lectern/ViewEvents.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>

struct _GMainContext; // GLib's

#pragma GCC visibility push(default)

namespace lectern {

enum class DocumentKind { Unknown = 0, Spreadsheet = 1, WordProcessing = 2, Presentation = 3 };

struct OpenOptions {
    int width = 480; // of the view, pixels
    int height = 800;
    std::optional<std::string> password = {};
    unsigned int restoreFrom = 0; // the state segment of an earlier view, or 0
    // Longer than the engine's own limit, so that the service answers first.
    std::chrono::milliseconds timeout{600'000};
    // Gives the open up; what the service has opened by then is destroyed.
    std::stop_token stop = {};
    // Called a few times a second during the open, with the time it has taken so
    // far, on the thread that opens.
    std::function<void(std::chrono::milliseconds elapsed)> onProgress = {};
    ViewEvents events = {};
    // Where the events are called; null: on a thread of the document's.
    _GMainContext* context = nullptr;
};

// An open document and its view. While it lives, the service is kept from
// stopping; its destructor tells the service to let go of the document.
//
// Threads: paints and frame() belong to one thread, or to onFrame where the
// library paints by itself; everything else may be called from any. The
// destructor may run in a callback. Input is sent and not answered; what it
// changed, a later paint shows. The service serves paints before input that
// waits: settle() comes between where a paint must show an input.
class Document {
public:
    // path: absolute, or relative to the working folder.
    static Result<std::unique_ptr<Document>> open(const Bus& bus, const std::string& path,
                                                  const OpenOptions& options = {});
    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    // Opens the document again and brings the view back to where it was at the
    // last paint: place, zoom, sheet or slide, not wide mode. For when the service
    // has gone (it is started again where the bus can do that), and for a document
    // that it no longer knows. The frame buffer stays; docid, and perhaps the
    // state's identifier, are others. Can be tried again when it fails. Time-out
    // and progress are those of the open, unless others are given.
    Failure reopen();
    Failure reopen(const CallLimits& limits);

    const Bus& bus() const;
    int docid() const;
    DocumentKind kind() const;
    // What the service last painted; changes during paints only.
    const FrameBuffer& frame() const;
    // As of the last paint.
    ViewState state() const;
    unsigned int stateIdentifier() const;

    // Has the view painted into frame(); returns when the picture is there.
    Failure paint(const CallLimits& limits = {});
    // Where the library paints by itself: has it paint soon, after the input sent.
    void requestPaint();

    // x and y: view pixels. On a sheet, the end of a drag also brings it to rest:
    // see below. A flick that the drag ends in comes before the pen up.
    Failure penDown(int x, int y);
    Failure penMove(int x, int y);
    Failure penUp(int x, int y);
    Failure keyDown(int key, int modifiers);
    Failure keyUp(int key, int modifiers);
    // factor: distance of the fingers now, relative to that at the start.
    Failure gestureStart(double factor);
    Failure gestureChange(double factor);
    Failure gestureEnd(double factor);
    Failure wideMode(bool on);
    // Answered by the service: what a finger meant. A click that the view has no
    // use for is told as onClickUnused. Velocities: finger pixels per second.
    Failure click(int x, int y, const CallLimits& limits = {});
    Failure doubleClick(int x, int y, const CallLimits& limits = {});
    Failure flick(int velocityX, int velocityY, const CallLimits& limits = {});
    // Ends a move of a sheet other than a drag, a jump to another one: a flick of
    // next to nothing, after which it is measured and rendered around its place.
    Failure comeToRest(const CallLimits& limits = {});
    // Waits until the service has taken all that was sent, and a sheet rests.
    void settle() const;

private:
    class [[gnu::visibility("hidden")]] Parts;
    explicit Document(std::unique_ptr<Parts> parts);
    std::unique_ptr<Parts> mParts;
};

} // namespace lectern

#pragma GCC visibility pop
