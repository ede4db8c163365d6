// SPDX-License-Identifier: Apache-2.0
// The exported functions of the fake word module: each records the call, takes
// its scripted result, and calls the document.
#include "modules/WordToGoModule.h"

#include "tests/fakes/module/FakeModule.h"
#include "tests/fakes/word/FakeWordDocument.h"

extern "C" LECTERN_MODULE_EXPORT FakeWordControl* fake_word_control();

FakeWordControl* fake_word_control() {
    static FakeWordControl control; // destroyed when the module is unloaded
    return &control;
}

FakeCalls& fake::calls() {
    return *fake_word_control();
}

namespace {

using fake::entered;
using fake::unsupported;

FakeWordControl& control() {
    return *fake_word_control();
}

FakeWordDocument* document(void* doc) {
    return static_cast<FakeWordDocument*>(doc);
}

} // namespace

int32_t wtg_open_file(const uint16_t* path, const uint16_t* password, const uint16_t* font_dir,
                      const uint16_t* temp_dir, void** doc) {
    if (const int32_t code = fake::opening(__func__, doc, path, password, font_dir, temp_dir)) {
        return code;
    }
    const int64_t rows = fake::numberInName(path, "rows-").value_or(control().rows);
    return fake::opened(doc, new FakeWordDocument(rows, control().characters, control().lineHeight));
}

int32_t wtg_close_file(void** doc) {
    return fake::close<FakeWordDocument>(__func__, doc);
}

int32_t wtg_get_character_count(void* doc, int32_t view, uint32_t* scratch, uint32_t* count) {
    if (const int32_t code = entered(doc, __func__, view)) {
        return code;
    }
    *scratch = 0;
    *count = document(doc)->characters();
    return MODULE_OK;
}

int32_t wtg_set_offscreen_buffer(void* doc, int32_t view, uint32_t* pixels, int32_t width, int32_t height) {
    if (const int32_t code = entered(doc, __func__, view, width, height)) {
        return code;
    }
    if (pixels == nullptr || width < 1 || height < 1) {
        return MODULE_BAD_ARGUMENT;
    }
    document(doc)->setBuffer(pixels, width, height);
    return MODULE_OK;
}

int32_t wtg_set_dpi(void* doc, int32_t dpi) {
    if (const int32_t code = entered(doc, __func__, dpi)) {
        return code;
    }
    if (dpi < 1) {
        return MODULE_BAD_ARGUMENT;
    }
    document(doc)->setDpi(dpi);
    return MODULE_OK;
}

int32_t wtg_get_top_left_character(void* doc, int32_t view, uint32_t* position) {
    if (const int32_t code = entered(doc, __func__, view)) {
        return code;
    }
    *position = document(doc)->topLeft();
    return MODULE_OK;
}

int32_t wtg_get_bottom_right_character(void* doc, int32_t view, uint32_t* position) {
    if (const int32_t code = entered(doc, __func__, view)) {
        return code;
    }
    *position = document(doc)->bottomRight();
    return MODULE_OK;
}

int32_t wtg_get_vertical_last_used_pixel(void* doc, int32_t view, int32_t* rows) {
    if (const int32_t code = entered(doc, __func__, view)) {
        return code;
    }
    *rows = document(doc)->usedRows();
    return MODULE_OK;
}

int32_t wtg_scroll_down(void* doc, int32_t view, int32_t rows, int32_t* scrolled) {
    *scrolled = 0;
    if (const int32_t code = entered(doc, __func__, view, rows)) {
        return code;
    }
    if (!document(doc)->scrollDown(rows)) {
        return MODULE_NOTHING_THERE;
    }
    *scrolled = rows;
    return MODULE_OK;
}

int32_t wtg_scroll_up(void* doc, int32_t view, int32_t rows, int32_t* scrolled) {
    *scrolled = 0;
    if (const int32_t code = entered(doc, __func__, view, rows)) {
        return code;
    }
    *scrolled = document(doc)->scrollUp(rows);
    return MODULE_OK;
}

int32_t wtg_jump_to_character(void* doc, int32_t story, uint32_t position) {
    if (const int32_t code = entered(doc, __func__, story, position)) {
        return code;
    }
    if (story != 0 || position >= document(doc)->characters()) {
        return MODULE_NOTHING_THERE;
    }
    document(doc)->jump(position);
    return MODULE_OK;
}

int32_t wtg_find(void* doc, const uint16_t* text, int32_t flags, uint32_t* from, uint32_t* to,
                 const wtg_find_result** results, int32_t* count) {
    *results = nullptr;
    *count = 0;
    if (const int32_t code = entered(doc, __func__, text, flags, *from, *to)) {
        return code;
    }
    FakeWordDocument& d = *document(doc);
    d.found.clear();
    d.results.clear();
    for (const FakeWordHit& hit : control().hits) {
        if (hit.start >= *from && hit.end <= *to) {
            d.found.push_back(hit);
            d.results.push_back({0, hit.start, hit.end});
        }
    }
    *results = d.results.empty() ? nullptr : d.results.data();
    *count = static_cast<int32_t>(d.results.size());
    return MODULE_OK;
}

int32_t wtg_get_found_regions(void* doc, int32_t view, int32_t* count, const wtg_find_region** regions) {
    *regions = nullptr;
    *count = 0;
    if (const int32_t code = entered(doc, __func__, view)) {
        return code;
    }
    FakeWordDocument& d = *document(doc);
    std::vector<FakeWordRegion> list;
    if (control().regions) {
        list = *control().regions;
    } else {
        for (const FakeWordHit& hit : d.found) {
            std::vector<module_rect> rectangles = d.rectangles(hit);
            if (d.isInStretch(rectangles.front())) {
                list.push_back({hit.start, std::move(rectangles)});
            }
        }
    }
    d.regionRectangles.clear();
    d.regions.clear();
    for (FakeWordRegion& region : list) {
        d.regionRectangles.push_back(std::move(region.rectangles));
        const std::vector<module_rect>& kept = d.regionRectangles.back();
        d.regions.push_back({region.position, kept.data(), static_cast<uint32_t>(kept.size())});
    }
    *regions = d.regions.empty() ? nullptr : d.regions.data();
    *count = static_cast<int32_t>(d.regions.size());
    return MODULE_OK;
}

int32_t wtg_stop_find(void* doc) {
    if (const int32_t code = entered(doc, __func__)) {
        return code;
    }
    FakeWordDocument& d = *document(doc);
    d.found.clear();
    d.results.clear();
    d.regions.clear();
    d.regionRectangles.clear();
    return MODULE_OK;
}

int32_t wtg_set_highlight_color(void* doc, const uint8_t rgb[3]) {
    return fake::setHighlightColor(doc, __func__, rgb);
}

int32_t wtg_get_click_info(void* doc, int32_t x, int32_t y, const wtg_click_info** info) {
    if (const int32_t code = entered(doc, __func__, x, y)) {
        return code;
    }
    FakeWordDocument& d = *document(doc);
    d.click = control().click;
    if (d.click.type == 6) {
        d.click.a = reinterpret_cast<intptr_t>(control().link.c_str());
    }
    *info = &d.click;
    return MODULE_OK;
}

int32_t wtg_open_secondary_document(void* doc, intptr_t a, intptr_t b, intptr_t c, int32_t height) {
    if (const int32_t code = entered(doc, __func__, a, b, c, height)) {
        return code;
    }
    document(doc)->paintSecondary(height);
    return MODULE_OK;
}

int32_t wtg_close_secondary_document(void* doc) {
    return entered(doc, __func__);
}

int32_t wtg_get_document_name(void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length) {
    return fake::giveProperty(doc, __func__, control().name, text, capacity_bytes, length);
}

int32_t wtg_get_document_author(void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length) {
    return fake::giveProperty(doc, __func__, control().author, text, capacity_bytes, length);
}

int32_t wtg_get_document_description(void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length) {
    return fake::giveProperty(doc, __func__, control().description, text, capacity_bytes, length);
}

int32_t wtg_get_document_creation_date(void* doc, time_t* time) {
    return fake::giveTime(doc, __func__, control().created, time);
}

int32_t wtg_get_document_last_saved_date(void* doc, time_t* time) {
    return fake::giveTime(doc, __func__, control().lastSaved, time);
}

int32_t wtg_word_count(void* doc, int32_t* count) {
    if (const int32_t code = entered(doc, __func__)) {
        return code;
    }
    *count = control().words;
    return MODULE_OK;
}

int32_t wtg_clear_selection(void* doc) {
    control().selectionStart = control().selectionEnd = 0;
    return entered(doc, __func__);
}

int32_t wtg_select_all(void* doc) {
    if (const int32_t code = entered(doc, __func__)) {
        return code;
    }
    return fakeSelect(0, document(doc)->characters());
}

int32_t wtg_select_area(void* /*doc*/, int32_t /*view*/, int32_t /*left*/, int32_t /*top*/, int32_t /*right*/,
                        int32_t /*bottom*/) {
    return unsupported(__func__);
}

int32_t wtg_select_line(void* doc, int32_t view, int32_t x, int32_t y) {
    if (const int32_t code = entered(doc, __func__, view, x, y)) {
        return code;
    }
    FakeWordDocument& d = *document(doc);
    const int64_t line = d.lineAt(y);
    return fakeSelect(d.characterOf(line), d.characterOf(line + 1));
}

// A line is one word.
int32_t wtg_select_word(void* doc, int32_t view, int32_t x, int32_t y) {
    if (const int32_t code = entered(doc, __func__, view, x, y)) {
        return code;
    }
    FakeWordDocument& d = *document(doc);
    const int64_t line = d.lineAt(y);
    return fakeSelect(d.characterOf(line), d.characterOf(line + 1));
}

// The text of a selection is the numbers of its characters: "7-19".
int32_t wtg_copy_selection(void* doc, uint16_t* text, int32_t capacity, int32_t first, int32_t* length) {
    if (const int32_t code = entered(doc, __func__, capacity, first)) {
        return code;
    }
    std::u16string all;
    if (control().selectionStart < control().selectionEnd) {
        all = fakeNumbers(control().selectionStart, control().selectionEnd);
    }
    return fake::giveText(all, text, capacity, length);
}

// Only the loader needs the remaining functions; a call is recorded and fails.

int32_t wtg_get_click_regions(void* /*doc*/, int32_t /*view*/, int32_t* /*count*/,
                              const module_rect** /*regions*/) {
    return unsupported(__func__);
}

int32_t wtg_get_version(uint16_t* /*text*/, int32_t /*capacity*/, int32_t* /*length*/) {
    return unsupported(__func__);
}

int32_t wtg_page_layout_size(void* /*doc*/, int32_t /*view*/, int32_t* /*width*/, int32_t* /*height*/) {
    return unsupported(__func__);
}

int32_t wtg_release_memory(void* doc) {
    return entered(doc, __func__);
}

int32_t wtg_scroll_to_character_range(void* /*doc*/, int32_t /*view*/, uint32_t /*start*/, uint32_t /*end*/) {
    return unsupported(__func__);
}

int32_t wtg_smart_zoom(void* /*doc*/, int32_t /*view*/, int32_t /*x*/, int32_t /*y*/, module_rect* /*area*/) {
    return unsupported(__func__);
}

int32_t lectern_module_lost(void* /*doc*/) {
    return fake_word_control()->loss;
}
