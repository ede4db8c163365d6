// SPDX-License-Identifier: Apache-2.0
// The exported functions of the fake presentation module: each records the call
// and takes its scripted result first.
#include "modules/SlideshowToGoModule.h"

#include "tests/fakes/module/FakeModule.h"
#include "tests/fakes/slides/FakeSlideModule.h"

FakeSlideControl* fake_slide_control() {
    static FakeSlideControl control; // destroyed when the module is unloaded
    return &control;
}

FakeCalls& fake::calls() {
    return *fake_slide_control();
}

namespace {

using fake::entered;
using fake::unsupported;

FakeSlideControl& control() {
    return *fake_slide_control();
}

// An open document: the last rendering, and the arrays returned to the caller.
struct Document {
    int32_t slide = -1;
    int32_t width = 0;
    int32_t height = 0;
    bool searching = false;
    std::vector<sstg_find_info> infos;
    std::vector<FakeSlideHit> rectangles;
    std::vector<sstg_find_region> regions;
};

Document& document(void* doc) {
    return *static_cast<Document*>(doc);
}

bool has(int32_t slide) {
    return slide >= 0 && static_cast<size_t>(slide) < control().slides.size();
}

const FakeSlide& slideAt(int32_t slide) {
    return control().slides[static_cast<size_t>(slide)];
}

// As fake::entered(), for a call with a slide, which must exist.
template<typename... Arguments>
int32_t enteredSlide(const void* doc, const char* name, int32_t slide, Arguments... arguments) {
    const int32_t code = entered(doc, name, slide, arguments...);
    return code == MODULE_OK && !has(slide) ? static_cast<int32_t>(MODULE_BAD_ARGUMENT) : code;
}

module_rect onSurface(const module_rect& r, const Document& d) {
    const auto scaled = [](int32_t units, int32_t pixels, int32_t length) {
        return static_cast<int32_t>(int64_t{units} * pixels / length);
    };
    return {scaled(r.x, d.width, control().width), scaled(r.y, d.height, control().height),
            scaled(r.width, d.width, control().width), scaled(r.height, d.height, control().height)};
}

} // namespace

int32_t sstg_open_file(const uint16_t* path, const uint16_t* font_dir, const uint16_t* temp_dir, void** doc) {
    if (const int32_t code = fake::opening(__func__, doc, path, font_dir, temp_dir)) {
        return code;
    }
    return fake::opened(doc, new Document);
}

int32_t sstg_close_file(void** doc) {
    return fake::close<Document>(__func__, doc);
}

int32_t sstg_get_slide_count(void* doc, int32_t* count) {
    if (const int32_t code = entered(doc, __func__)) {
        return code;
    }
    *count = control().arrayCount.value_or(static_cast<int32_t>(control().slides.size()));
    return MODULE_OK;
}

int32_t sstg_get_slide_dimensions(void* doc, int32_t slide, int32_t* width, int32_t* height) {
    if (const int32_t code = enteredSlide(doc, __func__, slide)) {
        return code;
    }
    *width = control().width;
    *height = control().height;
    return MODULE_OK;
}

int32_t sstg_get_slide_title(void* doc, int32_t slide, uint16_t* text, int32_t capacity, int32_t* length) {
    if (const int32_t code = enteredSlide(doc, __func__, slide, capacity)) {
        return code;
    }
    return fake::giveText(slideAt(slide).title, text, capacity, length);
}

int32_t sstg_slide_has_note(void* doc, int32_t slide, uint8_t* flag) {
    if (const int32_t code = enteredSlide(doc, __func__, slide)) {
        return code;
    }
    *flag = slideAt(slide).note.has_value() ? 1 : 0;
    return MODULE_OK;
}

int32_t sstg_get_slide_note(void* doc, int32_t slide, uint16_t* text, int32_t capacity, int32_t first,
                            int32_t* length) {
    if (const int32_t code = enteredSlide(doc, __func__, slide, capacity, first)) {
        return code;
    }
    return fake::giveText(slideAt(slide).note.value_or(u""), text, capacity, length);
}

int32_t sstg_render_slide(void* doc, int32_t slide, int32_t flags, uint32_t* pixels, int32_t width,
                          int32_t height) {
    if (const int32_t code = enteredSlide(doc, __func__, slide, flags, width, height)) {
        return code;
    }
    if (pixels == nullptr || width < 1 || height < 1) {
        return MODULE_BAD_ARGUMENT;
    }
    Document& d = document(doc);
    d.slide = slide;
    d.width = width;
    d.height = height;
    for (int32_t y = 0; y < height; ++y) {
        for (int32_t x = 0; x < width; ++x) {
            *pixels++ = fakeSlidePixel(slide, x, y);
        }
    }
    return MODULE_OK;
}

int32_t sstg_set_highlight_color(void* doc, const uint8_t rgb[3]) {
    return fake::setHighlightColor(doc, __func__, rgb);
}

int32_t sstg_find(void* doc, const uint16_t* text, int32_t first_slide, int32_t last_slide,
                  const sstg_find_info** infos, int32_t* count) {
    *infos = nullptr;
    *count = 0;
    if (const int32_t code = entered(doc, __func__, text, first_slide, last_slide)) {
        return code;
    }
    if (!has(first_slide) || !has(last_slide)) {
        return MODULE_BAD_ARGUMENT;
    }
    Document& d = document(doc);
    d.searching = true;
    d.infos.clear();
    for (int32_t i = first_slide; i <= last_slide; ++i) {
        const auto hits = static_cast<int32_t>(slideAt(i).hits.size());
        if (hits > 0 || slideAt(i).noteHits > 0) {
            d.infos.push_back({i, hits, slideAt(i).noteHits});
        }
    }
    d.infos = control().infos.value_or(d.infos);
    return fake::giveArray(control(), d.infos, infos, count);
}

int32_t sstg_get_found_regions(void* doc, int32_t* count, const sstg_find_region** regions) {
    *regions = nullptr;
    *count = 0;
    if (const int32_t code = entered(doc, __func__)) {
        return code;
    }
    Document& d = document(doc);
    d.regions.clear();
    d.rectangles.clear();
    if (d.searching && has(d.slide)) {
        d.rectangles = slideAt(d.slide).hits;
    }
    for (FakeSlideHit& hit : d.rectangles) {
        std::transform(hit.begin(), hit.end(), hit.begin(), [&d](const auto& r) { return onSurface(r, d); });
        d.regions.push_back({hit.empty() ? nullptr : hit.data(), static_cast<uint32_t>(hit.size())});
    }
    return fake::giveArray(control(), d.regions, regions, count);
}

int32_t sstg_stop_find(void* doc) {
    if (const int32_t code = entered(doc, __func__)) {
        return code;
    }
    Document& d = document(doc);
    d.searching = false;
    // The returned arrays are no longer valid; freeing them exposes a later use.
    d.infos = {};
    d.regions = {};
    d.rectangles = {};
    return MODULE_OK;
}

int32_t sstg_get_document_name(void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length) {
    return fake::giveProperty(doc, __func__, control().name, text, capacity_bytes, length);
}

int32_t sstg_get_document_author(void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length) {
    return fake::giveProperty(doc, __func__, control().author, text, capacity_bytes, length);
}

int32_t sstg_get_document_description(void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length) {
    return fake::giveProperty(doc, __func__, control().description, text, capacity_bytes, length);
}

int32_t sstg_get_document_creation_date(void* doc, time_t* time) {
    return fake::giveTime(doc, __func__, control().created, time);
}

int32_t sstg_get_document_last_saved_date(void* doc, time_t* time) {
    return fake::giveTime(doc, __func__, control().lastSaved, time);
}

// Only the loader needs the remaining functions; a call is recorded and fails.

int32_t sstg_get_found_note_offsets(void* /*doc*/, int32_t /*slide*/, int32_t* /*count*/,
                                    const int32_t** /*offsets*/) {
    return unsupported(__func__);
}

int32_t sstg_get_slide_outline(void* /*doc*/, int32_t /*slide*/, int32_t* /*count*/,
                               sstg_outline_item** /*items*/) {
    return unsupported(__func__);
}

int32_t sstg_free_slide_outline(void* /*doc*/, sstg_outline_item* /*items*/) {
    return unsupported(__func__);
}

int32_t sstg_get_version(uint16_t* /*text*/, int32_t /*capacity*/, int32_t* /*length*/) {
    return unsupported(__func__);
}

int32_t sstg_release_memory(void* doc) {
    return entered(doc, __func__);
}
