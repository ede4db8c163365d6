// SPDX-License-Identifier: Apache-2.0
#include "service/TouchReplies.h"

#include <string>

namespace {

void add(json_object* object, const char* key, long long value) {
    json_object_object_add(object, key, json_object_new_int64(value));
}

void add(json_object* object, const char* key, double value) {
    json_object_object_add(object, key, json_object_new_double(value));
}

void add(json_object* object, const char* key, bool value) {
    json_object_object_add(object, key, json_object_new_boolean(value));
}

void add(json_object* object, const char* key, const std::string& value) {
    json_object_object_add(object, key,
                           json_object_new_string_len(value.data(), static_cast<int>(value.size())));
}

void addRect(json_object* object, const CpRect& r) {
    add(object, "x", static_cast<long long>(r.Left()));
    add(object, "y", static_cast<long long>(r.Top()));
    add(object, "width", static_cast<long long>(r.Width()));
    add(object, "height", static_cast<long long>(r.Height()));
}

// Adds an array with one object for each element, which fill() completes.
template<typename Element, typename Fill>
void addList(json_object* reply, const char* key, const std::vector<Element>& elements, Fill fill) {
    json_object* list = json_object_new_array();
    for (const Element& element : elements) {
        json_object* object = json_object_new_object();
        fill(object, element);
        json_object_array_add(list, object);
    }
    json_object_object_add(reply, key, list);
}

} // namespace

void addPlace(json_object* reply, const ViewPlace& place) {
    add(reply, "documentWidth", place.documentWidth);
    add(reply, "documentHeight", place.documentHeight);
    addRect(reply, place.view);
    add(reply, "zoom", place.zoom);
    add(reply, "smallestZoom", place.smallestZoom);
    add(reply, "largestZoom", place.largestZoom);
    add(reply, "fit", place.fit);
    add(reply, "part", static_cast<long long>(place.part));
    add(reply, "parts", static_cast<long long>(place.parts));
    add(reply, "hit", static_cast<long long>(place.hit));
    add(reply, "hits", static_cast<long long>(place.hits));
    add(reply, "moving", place.isMoving);
}

void addHit(json_object* reply, const HitPlace& hit) {
    add(reply, "hit", static_cast<long long>(hit.hit));
    add(reply, "hits", static_cast<long long>(hit.hits));
    add(reply, "part", static_cast<long long>(hit.part));
}

void addSelection(json_object* reply, const Selection& selection) {
    add(reply, "text", selection.text);
    addList(reply, "rectangles", selection.rectangles, addRect);
}

void addLines(json_object* reply, const std::vector<TextLine>& lines) {
    addList(reply, "lines", lines, [](json_object* object, const TextLine& line) {
        add(object, "text", line.text);
        addRect(object, line.place);
    });
}

void addOutline(json_object* reply, const std::vector<OutlineEntry>& entries) {
    addList(reply, "entries", entries, [](json_object* object, const OutlineEntry& entry) {
        add(object, "title", entry.title);
        add(object, "level", static_cast<long long>(entry.level));
        add(object, "part", static_cast<long long>(entry.part));
    });
}

void addCell(json_object* reply, const Cell& cell) {
    add(reply, "column", static_cast<long long>(cell.column));
    add(reply, "row", static_cast<long long>(cell.row));
    add(reply, "address", cell.address);
    add(reply, "text", cell.text);
    add(reply, "formula", cell.formula);
    add(reply, "comment", cell.comment);
    addRect(reply, cell.place);
}
