// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/LineBoxes.h"

#include <LibreOfficeKit/LibreOfficeKitEnums.h>

#include <algorithm>
#include <chrono>
#include <tuple>
#include <utility>

namespace lectern::engine {

using css::uno::Reference;

namespace {

// The longest wait for an answer, which usually takes well under a millisecond.
constexpr std::chrono::milliseconds PATIENCE(200);

std::vector<ViewBox> inReadingOrder(std::vector<ViewBox> boxes) {
    std::sort(boxes.begin(), boxes.end(), [](const ViewBox& a, const ViewBox& b) {
        return std::tie(a.top, a.left) < std::tie(b.top, b.left);
    });
    return boxes;
}

} // namespace

LineBoxes::LineBoxes(lok::Document& painter, const TextFlow& flow, const TextPositions& positions)
    : mPainter(painter), mFlow(flow), mPositions(positions) {
    mPainter.registerCallback(&LineBoxes::onEvent, this);
}

LineBoxes::~LineBoxes() {
    mPainter.registerCallback(nullptr, nullptr);
}

void LineBoxes::onEvent(int type, const char* payload, void* self) {
    if (type != LOK_CALLBACK_TEXT_SELECTION || payload == nullptr || *payload == '\0') {
        return;
    }
    auto& boxes = *static_cast<LineBoxes*>(self);
    const Lock lock(boxes.mMutex);
    boxes.mPayload = payload;
    boxes.mArrived.notify_one();
}

std::vector<ViewBox> LineBoxes::of(CharacterRange range) {
    if (range.isEmpty()) {
        return {};
    }
    const Reference<css::text::XTextRange> selection(mPositions.select(range), css::uno::UNO_QUERY);
    {
        const Lock lock(mMutex);
        mPayload.clear();
    }
    mFlow.cursor()->gotoRange(selection, false);
    return inReadingOrder(readViewBoxes(takeSelection()));
}

std::string LineBoxes::takeSelection() {
    Lock lock(mMutex);
    mArrived.wait_for(lock, PATIENCE, [this]() REQUIRES(mMutex) { return !mPayload.empty(); });
    return std::exchange(mPayload, {});
}

} // namespace lectern::engine
