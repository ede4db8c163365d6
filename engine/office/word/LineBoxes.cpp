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

// The longest wait for an answer. It usually takes well under a millisecond, but
// much longer on a busy machine. Only text that is not shown gets none.
constexpr std::chrono::milliseconds PATIENCE(1000);

std::vector<ViewBox> inReadingOrder(std::vector<ViewBox> boxes) {
    std::sort(boxes.begin(), boxes.end(), [](const ViewBox& a, const ViewBox& b) {
        return std::tie(a.top, a.left) < std::tie(b.top, b.left);
    });
    return boxes;
}

// The part of boxes, taken one after another, that a part of their characters has.
std::vector<ViewBox> shareOf(const std::vector<ViewBox>& boxes, CharacterRange whole, CharacterRange part) {
    int64_t width = 0;
    for (const ViewBox& box : boxes) {
        width += box.width;
    }
    const int64_t characters = int64_t{whole.end} - whole.start;
    const int64_t first = width * (int64_t{part.start} - whole.start) / characters;
    const int64_t last = width * (int64_t{part.end} - whole.start) / characters;
    std::vector<ViewBox> share;
    int64_t before = 0;
    for (const ViewBox& box : boxes) {
        const int64_t left = std::max(first - before, int64_t{0});
        const int64_t right = std::min(last - before, int64_t{box.width});
        if (left < right) {
            share.push_back({box.left + left, box.top, right - left, box.height});
        }
        before += box.width;
    }
    return share;
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
    static_cast<LineBoxes*>(self)->mPayload = payload;
}

std::vector<ViewBox> LineBoxes::of(CharacterRange range) {
    if (range.isEmpty()) {
        return {};
    }
    const BodyParagraph& paragraph = mPositions.body().paragraphAt(range.start);
    if (paragraph.kind == BodyParagraph::Kind::Plain) {
        return selected(range);
    }
    const bool isAttached = paragraph.kind == BodyParagraph::Kind::Attached;
    const CharacterRange whole = isAttached ? range : mPositions.withWholeUnits(range);
    if (!(isAttached ? paragraph.range == mLast.attachedTo : whole == mLast.whole)) {
        mFlow.cursor()->collapseToStart();
        mLast = {whole, isAttached ? paragraph.range : Reference<css::text::XTextRange>(), selected(whole)};
    }
    return isAttached || whole == range ? mLast.boxes : shareOf(mLast.boxes, whole, range);
}

std::vector<ViewBox> LineBoxes::selected(CharacterRange range) {
    const Reference<css::text::XTextRange> selection(mPositions.select(range), css::uno::UNO_QUERY);
    if (range == mSelected) {
        mFlow.cursor()->collapseToStart(); // the same selection again would not be reported
    }
    mSelected = range;
    mPayload.clear();
    mFlow.cursor()->gotoRange(selection, false);
    return inReadingOrder(readViewBoxes(takeSelection()));
}

std::string LineBoxes::takeSelection() {
    const auto end = std::chrono::steady_clock::now() + PATIENCE;
    while (mPayload.empty() && std::chrono::steady_clock::now() < end) {
        handleSuiteEvents();
    }
    return std::exchange(mPayload, {});
}

} // namespace lectern::engine
