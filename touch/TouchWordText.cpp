// SPDX-License-Identifier: Apache-2.0
// The text of a touch view: selecting and reading it, and its headings.
#include "modules/ModuleResults.h"
#include "touch/TouchWord.h"
#include "view/TextHelpers.h"

#include <algorithm>
#include <span>

namespace {

constexpr int32_t MOST_UNITS = 1 << 28; // of a selection: more than any text has
constexpr uint8_t SELECTED_COLOUR[3] = {168, 205, 255};

TouchResult prvResult(int32_t code) {
    switch (code) {
    case MODULE_OK:
        return TouchResult::Ok;
    case MODULE_NOTHING_THERE:
        return TouchResult::NothingThere;
    case MODULE_NOT_SUPPORTED:
        return TouchResult::NotSupported;
    default:
        return TouchResult::Failed;
    }
}

// The elements of an array that a module returned.
template<typename Element>
std::span<const Element> prvArray(const Element* first, int32_t count) {
    return first != nullptr && count > 0 ? std::span(first, static_cast<size_t>(count))
                                         : std::span<const Element>();
}

bool prvTouches(const CpRect& place, int width, int height) {
    return place.Right() > 0 && place.Bottom() > 0 && place.Left() < width && place.Top() < height;
}

} // namespace

TouchResult TouchWord::select(SelectUnit unit, const CpPoint& point) {
    if (mDocPixmap == nullptr) {
        return TouchResult::Failed;
    }
    closePopup();
    mModule.wtg_set_highlight_color(mDocument, SELECTED_COLOUR);
    int32_t code = MODULE_OK;
    switch (unit) {
    case SelectUnit::None:
        clearSelection();
        return TouchResult::Ok;
    case SelectUnit::Word:
        code = mModule.wtg_select_word(mDocument, 0, bufferX(point.x), bufferY(point.y));
        break;
    case SelectUnit::Line:
        code = mModule.wtg_select_line(mDocument, 0, bufferX(point.x), bufferY(point.y));
        break;
    case SelectUnit::All:
        code = mModule.wtg_select_all(mDocument);
        break;
    }
    InvalidateScreen();
    return prvResult(code);
}

TouchResult TouchWord::moveSelectionEnd(SelectEnd end, const CpPoint& point) {
    if (mDocPixmap == nullptr) {
        return TouchResult::Failed;
    }
    if (mTouchModule.moveSelectionEnd == nullptr) {
        return TouchResult::NotSupported;
    }
    closePopup();
    mModule.wtg_set_highlight_color(mDocument, SELECTED_COLOUR);
    const int32_t code = mTouchModule.moveSelectionEnd(mDocument, end == SelectEnd::End ? 1 : 0,
                                                       bufferX(point.x), bufferY(point.y));
    InvalidateScreen();
    return prvResult(code);
}

TouchResult TouchWord::selection(Selection& selection) {
    if (mDocPixmap == nullptr) {
        return TouchResult::Failed;
    }
    int32_t length = 0;
    int32_t code = mModule.wtg_copy_selection(mDocument, nullptr, 0, 0, &length);
    if (length > MOST_UNITS) {
        return TouchResult::Failed;
    }
    if (code != MODULE_OK || length < 1) {
        return code != MODULE_OK ? prvResult(code) : TouchResult::NothingThere;
    }
    std::vector<uint16_t> text(static_cast<size_t>(length) + 1);
    code = mModule.wtg_copy_selection(mDocument, text.data(), length + 1, 0, &length);
    if (code != MODULE_OK) {
        return prvResult(code);
    }
    selection.text = utf8OfBuffer(text);
    const module_rect* rectangles = nullptr;
    int32_t count = 0;
    if (mTouchModule.selectionRegions != nullptr &&
        mTouchModule.selectionRegions(mDocument, &count, &rectangles) == MODULE_OK) {
        for (const module_rect& rectangle : prvArray(rectangles, count)) {
            if (const CpRect place = onView(rectangle); prvTouches(place, mWidth, mHeight)) {
                selection.rectangles.push_back(place);
            }
        }
    }
    return TouchResult::Ok;
}

TouchResult TouchWord::visibleText(std::vector<TextLine>& lines) {
    if (mTouchModule.textLines == nullptr) {
        return TouchResult::NotSupported;
    }
    if (mDocPixmap == nullptr) {
        return TouchResult::Failed;
    }
    const int top = saturatedDifference(pagePosition().y, mStretch.top());
    const wtg_text_line* found = nullptr;
    int32_t count = 0;
    const int32_t code = mTouchModule.textLines(mDocument, top, saturatedSum(top, mHeight), &count, &found);
    if (code == MODULE_OK) {
        for (const wtg_text_line& line : prvArray(found, count)) {
            lines.push_back({utf8OrEmpty(line.text), onView(line.place)});
        }
    }
    return prvResult(code);
}

// Reads the headings once, because the text does not change. Null if the module fails.
const std::vector<OutlineEntry>* TouchWord::readOutline() {
    const wtg_outline_entry* entries = nullptr;
    int32_t count = 0;
    if (!mOutlineRead) {
        if (mDocument == nullptr || mTouchModule.outline(mDocument, &count, &entries) != MODULE_OK) {
            return nullptr;
        }
        for (const wtg_outline_entry& entry : prvArray(entries, count)) {
            mOutline.push_back({utf8OrEmpty(entry.text), std::max(0, entry.level), 0});
            mHeadings.push_back(entry.character);
        }
        mOutlineRead = true;
    }
    return &mOutline;
}

TouchResult TouchWord::outline(std::vector<OutlineEntry>& entries) {
    if (mTouchModule.outline == nullptr) {
        return TouchResult::NotSupported;
    }
    const std::vector<OutlineEntry>* const all = readOutline();
    if (all == nullptr) {
        return TouchResult::Failed;
    }
    entries = *all;
    return TouchResult::Ok;
}

TouchResult TouchWord::goTo(int entry) {
    if (mTouchModule.outline == nullptr) {
        return TouchResult::NotSupported;
    }
    const std::vector<OutlineEntry>* const all = readOutline();
    if (all == nullptr) {
        return TouchResult::Failed;
    }
    if (entry < 0 || static_cast<size_t>(entry) >= all->size()) {
        return TouchResult::OutOfRange;
    }
    closePopup();
    return jumpToCharacter(0, mHeadings[static_cast<size_t>(entry)]) ? TouchResult::Ok : TouchResult::Failed;
}
