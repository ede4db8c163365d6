// SPDX-License-Identifier: Apache-2.0
#include "tests/system/support/SlideFixture.h"

#include <json-c/json.h>

#include <algorithm>
#include <sstream>

namespace {

constexpr int SLIDE_CHANGED = 7; // id of a notification

std::string member(const std::string& json, const char* key) {
    json_object* const object = json_tokener_parse(json.c_str());
    json_object* value = nullptr;
    std::string text;
    if (json_object_object_get_ex(object, key, &value) != 0) {
        text = json_object_get_string(value);
    }
    json_object_put(object);
    return text;
}

int numberOf(const std::string& json, const char* key) {
    const std::string text = member(json, key);
    return text.empty() ? -1000 : std::stoi(text);
}

std::string quoted(const std::string& text) {
    json_object* const value = json_object_new_string_len(text.data(), static_cast<int>(text.size()));
    std::string json = json_object_to_json_string(value);
    json_object_put(value);
    return json;
}

} // namespace

Shown SlidesTest::shown(const TestDocument& document) {
    const size_t pixels = static_cast<size_t>(document.width()) * static_cast<size_t>(document.height());
    Shown picture(document.frame(), document.frame() + pixels);
    picture.back() = 0;
    for (uint32_t& pixel : picture) {
        pixel &= 0xFFFFFF;
    }
    return picture;
}

Area SlidesTest::difference(const Shown& a, const Shown& b, int width) {
    Area area{width, static_cast<int>(a.size()) / width, 0, 0};
    for (size_t i = 0; i < a.size(); ++i) {
        if (a[i] != b[i]) {
            const int x = static_cast<int>(i) % width;
            const int y = static_cast<int>(i) / width;
            area = {std::min(area.left, x), std::min(area.top, y), std::max(area.right, x + 1),
                    std::max(area.bottom, y + 1)};
        }
    }
    return area;
}

bool SlidesTest::isBlack(const Shown& picture) {
    return std::all_of(picture.begin(), picture.end(), [](uint32_t colour) { return colour == 0; });
}

int SlidesTest::jump(TestDocument& document, int slide) {
    return numberOf(document.call("/ppt", "jumpToSlide", ",\"slide\":" + std::to_string(slide)),
                    "slideNumber");
}

int SlidesTest::slideCount(TestDocument& document) {
    return numberOf(document.call("/ppt", "getSlideCount"), "slidecnt");
}

std::string SlidesTest::slideList(TestDocument& document) {
    return document.call("/ppt", "getSlideList");
}

std::string SlidesTest::note(TestDocument& document) {
    return member(document.call("/ppt", "getSlideNote"), "note");
}

void SlidesTest::search(TestDocument& document, const std::string& text) {
    EXPECT_EQ(document.call("/common", "Search", ",\"search\":" + quoted(text)), R"({ "resultcount": 0 })");
}

int SlidesTest::slideTold(const TestDocument& document) const {
    int slide = -1;
    for (Answer answer = queue->poll(document.store()); answer.id >= 0;
         answer = queue->poll(document.store())) {
        if (answer.id == SLIDE_CHANGED) {
            slide = answer.value;
        }
    }
    return slide;
}

size_t SlidesTest::privateMemory() const {
    size_t bytes = 0;
    for (const pid_t process : {service->pid(), descendants("lectern-engine").front()}) {
        std::istringstream lines(readFile("/proc/" + std::to_string(process) + "/smaps_rollup"));
        std::string word;
        while (lines >> word) {
            if (word == "Private_Dirty:") {
                size_t kilobytes = 0;
                lines >> kilobytes;
                bytes += kilobytes << 10;
            }
        }
    }
    return bytes;
}
