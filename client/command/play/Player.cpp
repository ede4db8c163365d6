// SPDX-License-Identifier: Apache-2.0
#include "client/command/play/Player.h"

#include "client/command/Moves.h"
#include "client/command/Pause.h"
#include <lectern/CommonCalls.h>

#include <algorithm>

namespace lectern::play {

namespace {

// Time between two reported positions of the fingers.
constexpr std::chrono::milliseconds FINGER_STEP{40};

} // namespace

Failure Player::play(const Script& script) {
    mStart = Clock::now();
    for (const Step& step : script.steps) {
        mDue = step.due;
        Failure failure = waitUntil(step.due);
        if (!failure) {
            failure = std::visit([this](const auto& action) { return perform(action); }, step.action);
        }
        if (failure) {
            return failure->kind == Error::Kind::Cancelled ? failure : lineError(script, step.line, *failure);
        }
        // Records of different types can overtake each other in the queue, so
        // wait until it is empty.
        mDocument.settle();
    }
    return std::nullopt;
}

Failure Player::waitUntil(Time due) {
    Failure interrupted = Error{Error::Kind::Cancelled, "interrupted", 0, {}};
    while (mNextFrame && *mNextFrame <= due) {
        if (!pauseUntil(mStart + *mNextFrame, mLimits.stop)) {
            return interrupted;
        }
        if (Failure failure = takeFrame({})) {
            return failure;
        }
        const auto late = std::chrono::duration_cast<Time>(Clock::now() - mStart) - *mNextFrame;
        *mNextFrame += mPeriod * (late / mPeriod + 1);
    }
    return pauseUntil(mStart + due, mLimits.stop) ? Failure() : interrupted;
}

Failure Player::paint() {
    mDocument.settle();
    return mDocument.paint(mLimits);
}

Failure Player::takeFrame(const std::string& name) {
    Failure failure = paint();
    return failure ? failure : mFolder.write(mDocument.frame(), name);
}

Failure Player::perform(const Click& click) {
    return mDocument.click(click.at.x, click.at.y, mLimits);
}

Failure Player::perform(const DoubleClick& click) {
    return mDocument.doubleClick(click.at.x, click.at.y, mLimits);
}

Failure Player::perform(const Flick& flick) {
    return mDocument.flick(flick.velocity.x, flick.velocity.y, mLimits);
}

Failure Player::sendPinch(const Pinch& pinch, double factor, PinchStep phase) {
    if (pinch.at) {
        return mDocument.pinchAt(pinch.at->x, pinch.at->y, factor, phase);
    }
    switch (phase) {
    case PinchStep::Begins:
        return mDocument.gestureStart(factor);
    case PinchStep::Moves:
        return mDocument.gestureChange(factor);
    default:
        return mDocument.gestureEnd(factor);
    }
}

// The fingers move at a constant speed. A view previews a pinch from its last
// picture, and its end uses the factor of the last painted preview.
Failure Player::perform(const Pinch& pinch) {
    Failure failure = paint();
    if (!failure) {
        failure = sendPinch(pinch, 1.0, PinchStep::Begins);
    }
    const auto steps = std::max<Time::rep>(1, pinch.duration / FINGER_STEP);
    for (Time::rep i = 1; !failure && i <= steps; ++i) {
        failure = waitUntil(mDue + pinch.duration * i / steps);
        if (!failure) {
            const double part = static_cast<double>(i) / static_cast<double>(steps);
            failure = sendPinch(pinch, 1.0 + (pinch.factor - 1.0) * part, PinchStep::Moves);
        }
        if (!failure) {
            failure = paint();
        }
    }
    if (!failure) {
        failure = sendPinch(pinch, pinch.factor, PinchStep::Ends);
    }
    return failure ? failure : paint();
}

Failure Player::perform(const Key& key) {
    Failure failure = mDocument.keyDown(key.key, key.modifiers);
    return failure ? failure : mDocument.keyUp(key.key, key.modifiers);
}

Failure Player::perform(const GoToSheet& jump) {
    Failure failure = requireKind(mDocument, DocumentKind::Spreadsheet, "'sheet'");
    return failure ? failure : goToSheet(mDocument, jump.number, mLimits);
}

Failure Player::perform(const GoToSlide& jump) {
    Failure failure = requireKind(mDocument, DocumentKind::Presentation, "'slide'");
    return failure ? failure : goToSlide(mDocument, jump.number, mLimits);
}

Failure Player::perform(const Search& search) {
    const Result<std::optional<int>> hits = goToFirstHit(mDocument, search.text, mLimits);
    return hits ? Failure() : hits.error();
}

Failure Player::perform(const NextHit& /*hit*/) {
    return goToNextHit(mDocument, mLimits);
}

Failure Player::perform(const PreviousHit& /*hit*/) {
    return goToPreviousHit(mDocument, mLimits);
}

Failure Player::perform(const EndSearch& /*end*/) {
    return mDocument.ask(common::closeSearch(), mLimits);
}

Failure Player::perform(const Wide& wide) {
    Failure failure = requireKind(mDocument, DocumentKind::WordProcessing, "'wide'");
    return failure ? failure : mDocument.wideMode(wide.on);
}

Failure Player::perform(const TakeFrames& frames) {
    mPeriod = frames.period;
    mNextFrame = mPeriod.count() == 0 ? std::nullopt : std::optional(mDue + mPeriod);
    return std::nullopt;
}

} // namespace lectern::play
