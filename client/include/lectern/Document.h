// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Bus.h>
#include <lectern/Call.h>
#include <lectern/FrameBuffer.h>
#include <lectern/StateSegment.h>
#include <lectern/ViewEvents.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <type_traits>
#include <utility>

struct _GMainContext; // GLib's GMainContext

namespace lectern {
class DocumentNumber; // not part of the interface
}

#pragma GCC visibility push(default)

namespace lectern {

enum class DocumentKind { Unknown = 0, Spreadsheet = 1, WordProcessing = 2, Presentation = 3 };

// How a view behaves. Touch: as people know it from their other devices (docs/touch.md).
// Classic: with the ways that docs/bus.md describes.
enum class Manners { Touch, Classic };

// The steps of a pinch.
enum class PinchStep { Begins = 0, Moves = 1, Ends = 2, GivenUp = 3 };

struct OpenOptions {
    int width = 480;  // of the view in pixels, 1 to FrameBuffer::MAX_SIDE
    int height = 800; // the same
    std::optional<std::string> password = {};
    Manners manners = Manners::Touch;
    // The others need touch manners. dpi: the screen's dots per inch, 36 to 1200; text of
    // 12 points then opens a sixth of an inch high.
    double dpi = 72.0;
    // By default the contents of the file tell the kind, and where they do not, its name.
    DocumentKind kind = DocumentKind::Unknown;
    // Identifier of the state segment of an earlier view of the same document, where
    // the new view continues; 0 opens the document at its start. Some process must
    // still have the segment attached.
    unsigned int restoreFrom = 0;
    // Time-out of the open. The engine's own limit for an open is shorter, so that the
    // service answers first.
    std::chrono::milliseconds timeout{600'000};
    // Cancels the open. The library then destroys what the service has opened.
    std::stop_token stop = {};
    // Called about four times a second during the open with the time since its
    // start, on the thread that opens.
    std::function<void(std::chrono::milliseconds elapsed)> onProgress = {};
    ViewEvents events = {};
    // The context whose loop calls the events. The document keeps a reference. With
    // null, a thread of the document calls them.
    _GMainContext* context = nullptr;
};

// The threads on which a document does work for programs that must not block. Each does
// its work in order; none waits for another one.
enum class Lane {
    Input, // pens, pinches, keys, scrolls, clicks, flicks
    Paint, // paints, and what replaces the frame buffer: resize and reopen
    Call,  // all other calls of the service
};

// An open document and its view. While it exists, it keeps the service running. Its
// destructor closes the document in the service; it may run inside a callback.
//
// Threads: paint() and frame() belong to one thread of the program, or to onFrame
// where the library paints. All other functions may be called from any thread. Most of
// them block; ask() with a callback and later() do not.
//
// Input: pens, keys, gestures and wide mode are queued for the service, which sends
// no reply. A later paint shows the result. The service serves a paint before input
// that waits in the queue, so call settle() before a paint that must show an input.
// Where the queue is full, they block for at most ten seconds; in Lane::Input that holds
// up no loop of the program.
//
// Errors: calls fail with Error::Kind::Gone after the service has stopped, and with
// TimedOut when the service does not answer, or does not read its queue for ten
// seconds. Calls with limits also fail as Bus::call does.
class Document {
public:
    // Opens a document and waits for the result. path: absolute, or relative to this
    // process's working directory; with classic manners its extension tells the kind. Errors: argument (path
    // or size), system (no shared memory or queue), bus, TimedOut, cancelled, refused,
    // and document (Error::code holds the rendering module's code).
    static Result<std::unique_ptr<Document>> open(const Bus& bus, const std::string& path,
                                                  const OpenOptions& options = {});
    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    // Opens the document again after the service has stopped or has forgotten it; the
    // bus starts the service if it can. Restores the view's place, zoom, and sheet or
    // slide as of the last paint, but not wide mode, the selection or a search. The
    // frame buffer stays; stateIdentifier() may change. A failed call can
    // be repeated. Without limits, the time-out and progress callback of the open
    // apply.
    Failure reopen();
    Failure reopen(const CallLimits& limits);

    const Bus& bus() const;
    DocumentKind kind() const;
    Manners manners() const;
    // The picture that the service painted last. Only paints change it. Valid as long
    // as the document, or until the next resize().
    const FrameBuffer& frame() const;
    // The view's place in the document as of the last paint.
    ViewState state() const;
    // Identifier of the state segment, for OpenOptions::restoreFrom.
    unsigned int stateIdentifier() const;

    // Makes a call, such as one of TouchCalls.h, and returns its answer: the value or the
    // error; only the error or nothing where the call has no value.
    template<typename Value>
    Answer<Value> ask(const Call<Value>& call, const CallLimits& limits = {}) {
        const Result<std::string> reply = ask(call.request, limits);
        return reply ? call.read(*reply) : Answer<Value>(reply.error());
    }
    // The same for any method; returns the text of the reply.
    Result<std::string> ask(const Request& request, const CallLimits& limits = {});
    // The same without blocking: makes the call in Lane::Call. onDone is called with the
    // answer, and limits.onProgress too, as events are.
    template<typename Value>
    void ask(const Call<Value>& call, std::function<void(std::type_identity_t<Answer<Value>> answer)> onDone,
             const CallLimits& limits = {});

    // Work that may block. It must not destroy the document. The token is requested when
    // the result is not wanted any more; give it to the calls in the work.
    using Work = std::function<Failure(Document& document, const std::stop_token& stop)>;
    // Does work in a lane, after the lane's earlier work; never blocks. onDone is called
    // as events are, with the result of the work. Where `stop` was used before the work
    // could begin, it is not done, and the result is an error of kind cancelled.
    //
    // Both functions are destroyed where events are called. The destructor of the document
    // cancels the work that goes on, waits for it, destroys the rest and calls no onDone.
    // A frame() that is painted in Lane::Paint may be read while no paint waits there.
    void later(Lane lane, Work work, std::function<void(Failure failure)> onDone = {},
               std::stop_token stop = {});

    // Asks the service to paint, and returns when the picture is in frame(). Fails with
    // an error of kind document if the rendering module could not render it.
    Failure paint(const CallLimits& limits = {});
    // With ViewEvents::onFrame: asks the library to paint soon, after all input sent so
    // far. Without it, does nothing. Never blocks.
    void requestPaint();

    // A finger or pen touches, moves and leaves. x and y: view pixels from the top left
    // corner. On a sheet with classic manners, a penUp() that ends a drag also does what
    // comeToRest() does.
    // When a drag ends in a flick, call flick() before penUp().
    Failure penDown(int x, int y);
    Failure penMove(int x, int y);
    Failure penUp(int x, int y);
    // key: a character's code; the view scrolls for a, d, w and s. modifiers: no effect.
    Failure keyDown(int key, int modifiers);
    Failure keyUp(int key, int modifiers);
    // A pinch. factor: distance of the fingers divided by their distance at the start;
    // above 0. The view previews a change at the next paint, and lays the document out
    // again when the pinch ends.
    Failure gestureStart(double factor);
    Failure gestureChange(double factor);
    Failure gestureEnd(double factor);
    // Word-processing documents: lays the text out wider than the view, or as wide.
    Failure wideMode(bool on);
    // Touch manners only. A pinch about a point, which may move. factor: as above.
    Failure pinchAt(int x, int y, double factor, PinchStep phase);
    // Touch manners only. Moves the view by a way of a wheel, a trackpad or keys, in view
    // pixels; a positive y moves it to later parts of the document.
    Failure scrollBy(int x, int y);
    // Touch manners only. Gives the view another size, after a turn of the device for
    // example, and frame() another memory; the place in the document stays. On failure
    // both stay as they are. Paint after it, unless the library paints by itself.
    Failure resize(int width, int height, const CallLimits& limits = {});
    // Input that the service answers, so these calls block. A click without effect
    // triggers ViewEvents::onClickUnused. Velocities: finger pixels per second; a
    // negative velocityY moves the finger up, to later parts of the document.
    Failure click(int x, int y, const CallLimits& limits = {});
    Failure doubleClick(int x, int y, const CallLimits& limits = {});
    Failure flick(int velocityX, int velocityY, const CallLimits& limits = {});
    // Call this after a jump to another sheet; with touch manners it does nothing. It sends the slowest
    // possible flick, at whose end the service measures the sheet and renders the cells around the view.
    Failure comeToRest(const CallLimits& limits = {});
    // Waits until the service has read all input sent so far, for at most two seconds,
    // and until a sheet has come to rest.
    void settle() const;

private:
    friend class DocumentNumber;
    class [[gnu::visibility("hidden")]] Parts;
    explicit Document(std::unique_ptr<Parts> parts);
    // Limits for a call in a lane: the lane's token, and progress that is told as events are.
    CallLimits limitsInLane(const CallLimits& limits, const std::stop_token& stop) const;

    std::unique_ptr<Parts> mParts;
};

template<typename Value>
void Document::ask(const Call<Value>& call,
                   std::function<void(std::type_identity_t<Answer<Value>> answer)> onDone,
                   const CallLimits& limits) {
    const auto answer = std::make_shared<std::optional<Answer<Value>>>();
    later(
        Lane::Call,
        [call, limits, answer](Document& document, const std::stop_token& stop) {
            answer->emplace(document.ask(call, document.limitsInLane(limits, stop)));
            return Failure();
        },
        [answer, onDone = std::move(onDone)](const Failure& failure) {
            onDone(failure ? Answer<Value>(*failure) : std::move(**answer));
        },
        limits.stop);
}

} // namespace lectern

#pragma GCC visibility pop
