// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "client/Bus.h"
#include "client/ClientQueue.h"
#include "client/FrameBuffer.h"
#include "client/KeepAlive.h"
#include "client/RecordReader.h"
#include "client/StateSegment.h"

namespace lectern {

enum class DocumentKind { unknown = 0, spreadsheet = 1, wordProcessing = 2, presentation = 3 };

struct OpenOptions {
    int width = 480; // of the view, pixels
    int height = 800;
    std::optional<std::string> password = {};
    unsigned int restoreFrom = 0; // the state segment of an earlier view, or 0
    // Longer than the engine's own limit, so that the service answers first.
    std::chrono::milliseconds timeout{600'000};
    // Everything the service tells of the view but the answers that calls here
    // wait for. Called on a thread of the document's, until its destructor ends.
    std::function<void(const ServerClientMessage&)> onNotification = {};
    std::stop_token stop = {};
};

// An open document and its view. While it lives, the service is kept from
// stopping; its destructor tells the service to let go of the document.
//
// Threads: paints and frame() belong to one thread; everything else may be
// called from any. Input is sent and not answered; what it changed, a later
// paint shows. The service serves paints before input that waits: settle()
// comes between where a paint must show an input.
class Document {
public:
    // path: absolute, or relative to the working folder. The bus must outlive
    // the document.
    static Result<std::unique_ptr<Document>> open(const Bus& bus, const std::string& path,
                                                  const OpenOptions& options = {});
    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    const Bus& bus() const { return mBus; }
    int docid() const { return mDocid; }
    DocumentKind kind() const { return mKind; }
    // What the service last painted; changes during paints only.
    const FrameBuffer& frame() const { return mFrame; }
    // As of the last paint.
    ViewState state() const { return mState.read(); }
    unsigned int stateIdentifier() const { return mState.identifier(); }

    // Has the view painted into frame(); returns when the picture is there.
    Failure paint(const CallLimits& limits = {});

    // x and y: view pixels.
    Failure penDown(int x, int y) { return sendPoint(_PEN_DOWN, x, y); }
    Failure penMove(int x, int y) { return sendPoint(_PEN_MOVE, x, y); }
    Failure penUp(int x, int y) { return sendPoint(_PEN_UP, x, y); }
    Failure keyDown(int key, int modifiers) { return sendPoint(_KEY_DOWN, key, modifiers); }
    Failure keyUp(int key, int modifiers) { return sendPoint(_KEY_UP, key, modifiers); }
    // factor: distance of the fingers now, relative to that at the start.
    Failure gestureStart(double factor) { return sendFactor(_GESTURE_START, factor); }
    Failure gestureChange(double factor) { return sendFactor(_GESTURE_CHANGE, factor); }
    Failure gestureEnd(double factor) { return sendFactor(_GESTURE_END, factor); }
    Failure wideMode(bool on);
    // Waits until the service has taken all that was sent.
    void settle() const;

private:
    Document(const Bus& bus, FrameBuffer frame, StateSegment state, int docid, DocumentKind kind)
        : mBus(bus), mFrame(std::move(frame)), mState(std::move(state)), mDocid(docid), mKind(kind) {}

    Failure listen(std::function<void(const ServerClientMessage&)> onNotification);
    void takeViewRecord(const ServerClientMessage& message);
    void takePaintDone(const ServerClientMessage& message);
    Result<int> openResult(const CallLimits& limits);
    // Waits until the condition, which is tested with mMutex held, is true.
    template<typename Condition>
    Failure await(const char* what, const CallLimits& limits, Condition condition);
    ClientServerMessage record(ClientMessageType type) const;
    Failure sendPoint(ClientMessageType type, int x, int y);
    Failure sendFactor(ClientMessageType type, double factor);
    Failure send(const ClientServerMessage& message);

    const Bus& mBus;
    FrameBuffer mFrame;
    StateSegment mState;
    int mDocid;
    DocumentKind mKind;
    ClientQueue mQueue;
    std::function<void(const ServerClientMessage&)> mOnNotification;

    std::mutex mMutex; // guards what the readers write
    std::condition_variable_any mArrived;
    std::optional<int> mOpenResult;
    unsigned int mPaintsAsked = 0;
    unsigned int mPaintsDone = 0;
    int mPaintResult = 0;

    std::unique_ptr<RecordReader> mViewReader;
    std::unique_ptr<RecordReader> mPaintReader;
    std::optional<KeepAlive> mKeepAlive;
};

} // namespace lectern
