// SPDX-License-Identifier: Apache-2.0
#include "tests/system/support/SheetScreen.h"

#include "tests/system/support/Subprocess.h"

#include <json-c/json.h>

#include <numeric>

namespace {

constexpr uint32_t CORNER_BOX = 0xFFFEFEFE; // white as a fill leaves it
constexpr uint32_t HEADER_LINE = 0xFF8C8C8C;
constexpr int CLEAR = 5; // distance in pixels from the headers at which strokes on the cells begin

} // namespace

std::vector<uint32_t> SheetScreen::pixels() const {
    return {mDocument.frame(), mDocument.frame() + width() * (height() - 1)};
}

SheetScreen::Area SheetScreen::cells() const {
    Area area{0, 0, width(), height()};
    while (area.left < width() - 1 && at(area.left, 0) == CORNER_BOX) {
        ++area.left;
    }
    while (area.top < height() - 1 && at(0, area.top) == CORNER_BOX) {
        ++area.top;
    }
    return area;
}

std::vector<SheetScreen::Header> SheetScreen::headers(int first, int last, bool fromCorner,
                                                      bool across) const {
    std::vector<Header> found;
    int begin = fromCorner ? first : -1;
    for (int i = first; i < last; ++i) {
        if ((across ? at(i, 0) : at(0, i)) != HEADER_LINE) {
            continue;
        }
        if (begin >= 0) {
            found.push_back({begin, i});
        }
        begin = i;
    }
    return found;
}

std::vector<SheetScreen::Header> SheetScreen::columns() const {
    return headers(cells().left, width(), mDocument.scrollX() == 0, true);
}

std::vector<SheetScreen::Header> SheetScreen::rows() const {
    return headers(cells().top, height() - 1, mDocument.scrollY() == 0, false);
}

std::set<int> SheetScreen::notices() {
    std::set<int> ids;
    for (Answer answer = mQueue.poll(mDocument.store()); answer.id >= 0;
         answer = mQueue.poll(mDocument.store())) {
        ids.insert(answer.id);
    }
    return ids;
}

std::set<int> SheetScreen::tapColumn(const Header& column) {
    mDocument.tap(column.middle(), cells().top / 2);
    return notices();
}

std::set<int> SheetScreen::tapRow(const Header& row) {
    mDocument.tap(cells().left / 2, row.middle());
    return notices();
}

std::set<int> SheetScreen::stroke(int fromX, int fromY, int toX, int toY) {
    notices();
    mDocument.penDown(fromX, fromY);
    mDocument.penMove(std::midpoint(fromX, toX), std::midpoint(fromY, toY));
    mDocument.penMove(toX, toY);
    mQueue.post(5, mDocument.docid(), toX, toY);
    std::set<int> ids = mQueue.settle(mDocument.store());
    mDocument.paint();
    ids.merge(notices());
    return ids;
}

void SheetScreen::rest() {
    // Glide up: in the other direction the position, cut off to a whole pixel,
    // is one less.
    mDocument.call("/events", "handleFlick", ",\"xCoord\":0,\"yCoord\":-1");
    do { // a moving view requests the next paint after each paint
        notices();
        mDocument.paint();
    } while (notices().count(0) != 0);
}

void SheetScreen::scrollTo(int x, int y) {
    const Area area = cells();
    const int fromX = area.left + CLEAR;
    const int fromY = area.top + CLEAR;
    stroke(fromX, fromY, fromX + mDocument.scrollX() - x, fromY + mDocument.scrollY() - y);
    rest();
}

void SheetScreen::show(int sheet) {
    call("jumpToSheet", ",\"sheet\":" + std::to_string(sheet));
    scrollTo(0, 0);
}

std::string SheetScreen::copy(const std::string& file) {
    call("copySelection", ",\"column\":\"" + file + "\"");
    return readFile(file);
}

std::string jsonMember(const std::string& json, const char* key) {
    json_object* object = json_tokener_parse(json.c_str());
    json_object* value = nullptr;
    std::string text;
    if (json_object_object_get_ex(object, key, &value) != 0) {
        text = json_object_get_string(value);
    }
    json_object_put(object);
    return text;
}
