// SPDX-License-Identifier: Apache-2.0
// The functions of the fake word module that modules may lack.
#include "modules/TouchWordFunctions.h"
#include "tests/fakes/module/FakeModule.h"
#include "tests/fakes/word/FakeWordDocument.h"

#include <algorithm>

extern "C" FakeWordControl* fake_word_control();

namespace {

using fake::entered;

FakeWordControl& control() {
    return *fake_word_control();
}

FakeWordDocument* document(void* doc) {
    return static_cast<FakeWordDocument*>(doc);
}

} // namespace

int32_t wtg_get_character_at(void* doc, int32_t x, int32_t y, uint32_t* character, module_rect* line) {
    if (const int32_t code = entered(doc, __func__, x, y)) {
        return code;
    }
    FakeWordDocument& d = *document(doc);
    const int64_t at = d.lineAt(y);
    *character = d.characterOf(at);
    *line = d.lineRectangle(at);
    return MODULE_OK;
}

int32_t wtg_get_text_size(void* doc, int64_t* top, int64_t* rows, uint32_t* characters) {
    if (const int32_t code = entered(doc, __func__)) {
        return code;
    }
    FakeWordDocument& d = *document(doc);
    const FakeWordLayout& layout = d.layout();
    *top = layout.top;
    *rows = layout.rows;
    *characters = d.characters();
    if (control().laidOutRows >= 0 && control().laidOutRows < layout.rows) {
        *rows = control().laidOutRows;
        *characters = d.characterOf(*rows / layout.lineRows);
    }
    return MODULE_OK;
}

int32_t wtg_get_tap_area(void* doc, int32_t x, int32_t y, module_rect* area, int32_t* most_dpi) {
    if (const int32_t code = entered(doc, __func__, x, y)) {
        return code;
    }
    if (control().tapArea.width == 0) {
        return MODULE_NOTHING_THERE;
    }
    *area = control().tapArea;
    *most_dpi = control().tapMostDpi;
    return MODULE_OK;
}

int32_t wtg_set_find_options(void* doc, int32_t flags) {
    if (const int32_t code = entered(doc, __func__, flags)) {
        return code;
    }
    control().findOptions = flags;
    return MODULE_OK;
}

int32_t wtg_move_selection_end(void* doc, int32_t end, int32_t x, int32_t y) {
    if (const int32_t code = entered(doc, __func__, end, x, y)) {
        return code;
    }
    FakeWordDocument& d = *document(doc);
    const uint32_t start = control().selectionStart;
    const uint32_t last = control().selectionEnd;
    if (start >= last) {
        return MODULE_NOTHING_THERE;
    }
    const uint32_t position = d.characterOf(d.lineAt(y));
    return end == 0 ? fakeSelect(std::min(position, last - 1), last)
                    : fakeSelect(start, std::max(position, start + 1));
}

int32_t wtg_get_selection_regions(void* doc, int32_t* count, const module_rect** rectangles) {
    *count = 0;
    *rectangles = nullptr;
    if (const int32_t code = entered(doc, __func__)) {
        return code;
    }
    FakeWordDocument& d = *document(doc);
    const FakeWordLayout& layout = d.layout();
    d.selectionRectangles.clear();
    for (int64_t line = d.lineAt(0); line <= d.lineAt(layout.height - 1); ++line) {
        if (d.characterOf(line) < control().selectionEnd &&
            d.characterOf(line + 1) > control().selectionStart) {
            d.selectionRectangles.push_back(d.lineRectangle(line));
        }
    }
    *count = static_cast<int32_t>(d.selectionRectangles.size());
    *rectangles = d.selectionRectangles.data();
    return MODULE_OK;
}

// The text of a line is the numbers of its characters.
int32_t wtg_get_text_lines(void* doc, int32_t top, int32_t bottom, int32_t* count,
                           const wtg_text_line** lines) {
    *count = 0;
    *lines = nullptr;
    if (const int32_t code = entered(doc, __func__, top, bottom)) {
        return code;
    }
    FakeWordDocument& d = *document(doc);
    d.lineTexts.clear();
    d.lineRecords.clear();
    const int64_t first = d.lineAt(top);
    const int64_t last = d.lineAt(bottom - 1);
    for (int64_t line = first; line <= last; ++line) {
        d.lineTexts.push_back(fakeNumbers(d.characterOf(line), d.characterOf(line + 1)));
    }
    for (int64_t line = first; line <= last; ++line) {
        const std::u16string& text = d.lineTexts[static_cast<size_t>(line - first)];
        d.lineRecords.push_back({reinterpret_cast<const uint16_t*>(text.c_str()), d.lineRectangle(line)});
    }
    *count = static_cast<int32_t>(d.lineRecords.size());
    *lines = d.lineRecords.data();
    return MODULE_OK;
}

int32_t wtg_get_outline(void* doc, int32_t* count, const wtg_outline_entry** entries) {
    *count = 0;
    *entries = nullptr;
    if (const int32_t code = entered(doc, __func__)) {
        return code;
    }
    FakeWordDocument& d = *document(doc);
    d.outline.clear();
    for (const FakeWordHeading& heading : control().headings) {
        d.outline.push_back(
            {reinterpret_cast<const uint16_t*>(heading.title.c_str()), heading.level, heading.character});
    }
    *count = static_cast<int32_t>(d.outline.size());
    *entries = d.outline.data();
    return MODULE_OK;
}
