// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Calls.h"
#include <lectern/TouchCalls.h>

namespace lectern::touch {

namespace {

constexpr char CATEGORY[] = "/touch";

// A member of a reply; 0 when it is missing.
int number(const JsonMembers& reply, const char* key) {
    return reply.integer(key).value_or(0);
}

std::string text(const JsonMembers& reply, const char* key) {
    return reply.string(key).value_or("");
}

Rectangle rectangle(const JsonMembers& reply) {
    return {number(reply, "x"), number(reply, "y"), number(reply, "width"), number(reply, "height")};
}

JsonMembers withPoint(JsonMembers arguments, Point point) {
    arguments.add("x", point.x).add("y", point.y);
    return arguments;
}

Result<ViewPlace> readPlace(const JsonMembers& reply) {
    const Result<double> zoom = required(reply.real("zoom"));
    if (!zoom) {
        return zoom.error();
    }
    ViewPlace place;
    place.documentWidth = reply.wideInteger("documentWidth").value_or(0);
    place.documentHeight = reply.wideInteger("documentHeight").value_or(0);
    place.view = rectangle(reply);
    place.zoom = *zoom;
    place.smallestZoom = reply.real("smallestZoom").value_or(*zoom);
    place.largestZoom = reply.real("largestZoom").value_or(*zoom);
    place.fit = reply.real("fit").value_or(*zoom);
    place.part = number(reply, "part");
    place.parts = number(reply, "parts");
    place.hit = reply.integer("hit").value_or(-1);
    place.hits = number(reply, "hits");
    place.isMoving = reply.boolean("moving").value_or(false);
    return place;
}

Result<std::string> readLink(const JsonMembers& reply) {
    return required(reply.string("link"));
}

Result<Hit> readHit(const JsonMembers& reply) {
    const Result<int> hits = required(reply.integer("hits"));
    return hits ? Result<Hit>(Hit{reply.integer("hit").value_or(-1), *hits, number(reply, "part")})
                : hits.error();
}

Result<Selection> readSelection(const JsonMembers& reply) {
    Result<std::string> selected = required(reply.string("text"));
    if (!selected) {
        return selected.error();
    }
    Selection selection{std::move(*selected), {}};
    for (const JsonMembers& element : reply.list("rectangles").value_or(std::vector<JsonMembers>())) {
        selection.rectangles.push_back(rectangle(element));
    }
    return selection;
}

TextLine readLine(const JsonMembers& line) {
    return {text(line, "text"), rectangle(line)};
}

OutlineEntry readEntry(const JsonMembers& entry) {
    return {text(entry, "title"), number(entry, "level"), number(entry, "part")};
}

Result<Cell> readCell(const JsonMembers& reply) {
    Result<std::string> address = required(reply.string("address"));
    if (!address) {
        return address.error();
    }
    return Cell{{number(reply, "column"), number(reply, "row")},
                std::move(*address),
                text(reply, "text"),
                text(reply, "formula"),
                text(reply, "comment"),
                rectangle(reply)};
}

} // namespace

Call<ViewPlace> getView() {
    return query(CATEGORY, "getView", readPlace);
}

Call<void> scrollTo(Point at) {
    return command(CATEGORY, "scrollTo", withPoint({}, at));
}

Call<void> zoomTo(double zoom, std::optional<Point> about) {
    JsonMembers arguments;
    arguments.add("zoom", zoom);
    return command(CATEGORY, "zoomTo",
                   about ? withPoint(std::move(arguments), *about) : std::move(arguments));
}

Call<std::string> getLink() {
    return query(CATEGORY, "getLink", readLink);
}

Call<Hit> search(const std::string& text, const SearchOptions& options) {
    JsonMembers arguments;
    arguments.add("search", text).add("matchCase", options.matchCase).add("wholeWords", options.wholeWords);
    return query(CATEGORY, "search", readHit, arguments);
}

Call<Hit> nextResult() {
    return query(CATEGORY, "nextResult", readHit);
}

Call<Hit> previousResult() {
    return query(CATEGORY, "previousResult", readHit);
}

Call<void> select(SelectUnit unit, Point at) {
    constexpr const char* WORDS[] = {"none", "word", "line", "all"};
    JsonMembers arguments;
    arguments.add("unit", std::string(WORDS[static_cast<size_t>(unit)]));
    return command(CATEGORY, "select", withPoint(std::move(arguments), at));
}

Call<void> moveSelectionEnd(SelectEnd end, Point to) {
    JsonMembers arguments;
    arguments.add("end", std::string(end == SelectEnd::Start ? "start" : "end"));
    return command(CATEGORY, "select", withPoint(std::move(arguments), to));
}

Call<Selection> getSelection() {
    return query(CATEGORY, "getSelection", readSelection);
}

Call<std::vector<TextLine>> getText() {
    return listQuery(CATEGORY, "getText", "lines", readLine);
}

Call<std::vector<OutlineEntry>> getOutline() {
    return listQuery(CATEGORY, "getOutline", "entries", readEntry);
}

Call<void> goTo(int entry) {
    return command(CATEGORY, "goTo", JsonMembers().add("entry", entry));
}

Call<Cell> getCell(std::optional<CellAddress> at) {
    JsonMembers arguments;
    if (at) {
        arguments.add("column", at->column).add("row", at->row);
    }
    return query(CATEGORY, "getCell", readCell, arguments);
}

Call<void> getThumbnail(int part, const FrameBuffer& picture) {
    JsonMembers arguments;
    arguments.add("part", part);
    return command(CATEGORY, "getThumbnail", addFrame(std::move(arguments), picture));
}

Call<void> exportTo(ExportFormat format, const std::string& path) {
    return command(CATEGORY, "export",
                   JsonMembers()
                       .add("format", std::string(format == ExportFormat::Pdf ? "pdf" : "text"))
                       .add("path", path));
}

} // namespace lectern::touch
