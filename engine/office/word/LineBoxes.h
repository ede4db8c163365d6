// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/ViewBoxes.h"
#include "engine/office/word/TextPositions.h"

#include <condition_variable>
#include <mutex>
#include <string>

namespace lectern::engine {

// Asks the suite where characters lie, one box for each line. It tells only of
// what is selected, and in its own time: while this lives, it listens. Selects
// with the view's cursor.
class LineBoxes {
public:
    // All outlive this.
    LineBoxes(lok::Document& painter, const TextFlow& flow, const TextPositions& positions);
    ~LineBoxes();
    LineBoxes(const LineBoxes&) = delete;
    LineBoxes& operator=(const LineBoxes&) = delete;

    // From top to bottom, then left to right. None for what is not shown, or
    // when the suite does not tell.
    std::vector<ViewBox> of(CharacterRange range);

private:
    static void onEvent(int type, const char* payload, void* self);
    std::string takeSelection();

    lok::Document& mPainter;
    const TextFlow& mFlow;
    const TextPositions& mPositions;
    std::mutex mMutex; // guards the payload, which the suite's own thread delivers
    std::condition_variable mArrived;
    std::string mPayload;
};

} // namespace lectern::engine
