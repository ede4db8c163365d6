// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/command/play/FrameFolder.h"
#include "client/command/play/Script.h"
#include <lectern/Document.h>

#include <chrono>
#include <optional>

namespace lectern::play {

// Sends a script's input to a view, each step at its time on a steady clock,
// and stores the requested pictures. A late step is done as soon as possible.
// In a series of frames those whose time has passed are skipped.
class Player {
public:
    Player(Document& document, FrameFolder& folder, const CallLimits& limits)
        : mDocument(document), mFolder(folder), mLimits(limits) {}

    // Plays the script from its start. An error names the script's line.
    Failure play(const Script& script);

private:
    using Clock = std::chrono::steady_clock;
    using Time = std::chrono::milliseconds; // since the start of the script

    // Waits until `due` and takes the frames that are due before it.
    Failure waitUntil(Time due);
    Failure paint();
    Failure takeFrame(const std::string& name);
    Failure sendPinch(const Pinch& pinch, double factor, PinchStep phase);

    Failure perform(const PenDown& pen) { return mDocument.penDown(pen.at.x, pen.at.y); }
    Failure perform(const PenMove& pen) { return mDocument.penMove(pen.at.x, pen.at.y); }
    Failure perform(const PenUp& pen) { return mDocument.penUp(pen.at.x, pen.at.y); }
    Failure perform(const Click& click);
    Failure perform(const DoubleClick& click);
    Failure perform(const Flick& flick);
    Failure perform(const Pinch& pinch);
    Failure perform(const ScrollBy& scroll) { return mDocument.scrollBy(scroll.way.x, scroll.way.y); }
    Failure perform(const Resize& size) { return mDocument.resize(size.width, size.height, mLimits); }
    Failure perform(const Key& key);
    Failure perform(const GoToSheet& jump);
    Failure perform(const GoToSlide& jump);
    Failure perform(const Search& search);
    Failure perform(const NextHit& hit);
    Failure perform(const PreviousHit& hit);
    Failure perform(const EndSearch& end);
    Failure perform(const Wide& wide);
    Failure perform(const TakeFrame& frame) { return takeFrame(frame.name); }
    Failure perform(const TakeFrames& frames);
    Failure perform(const Wait& /*wait*/) { return std::nullopt; }

    Document& mDocument;
    FrameFolder& mFolder;
    const CallLimits mLimits;
    Clock::time_point mStart;
    Time mDue{0}; // of the current step
    Time mPeriod{0};
    std::optional<Time> mNextFrame;
};

} // namespace lectern::play
