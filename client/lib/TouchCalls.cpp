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

// The elements of the reply's array, each read by `read`.
template<typename Element>
Result<std::vector<Element>> queryList(const Bus& bus, const char* method, int docid, const char* key,
                                       Element (*read)(const JsonMembers&), const CallLimits& limits) {
    const Result<JsonMembers> reply = query(bus, CATEGORY, method, documentPayload(docid), limits);
    if (!reply) {
        return reply.error();
    }
    const Result<std::vector<JsonMembers>> members = required(reply->list(key));
    if (!members) {
        return members.error();
    }
    std::vector<Element> elements;
    for (const JsonMembers& element : *members) {
        elements.push_back(read(element));
    }
    return elements;
}

Result<Hit> queryHit(const Bus& bus, const char* method, const JsonMembers& payload,
                     const CallLimits& limits) {
    const Result<JsonMembers> reply = query(bus, CATEGORY, method, payload, limits);
    if (!reply) {
        return reply.error();
    }
    const Result<int> hits = required(reply->integer("hits"));
    return hits ? Result<Hit>(Hit{reply->integer("hit").value_or(-1), *hits, number(*reply, "part")})
                : hits.error();
}

JsonMembers withPoint(JsonMembers payload, Point point) {
    payload.add("x", point.x).add("y", point.y);
    return payload;
}

JsonMembers withFrame(JsonMembers payload, const FrameBuffer& frame) {
    payload.add("width", frame.width())
        .add("height", frame.height())
        .addIdentifier("shmid", frame.identifier())
        .add("size", static_cast<int>(frame.size()));
    return payload;
}

} // namespace

Result<ViewPlace> getView(const Bus& bus, int docid, const CallLimits& limits) {
    const Result<JsonMembers> reply = query(bus, CATEGORY, "getView", documentPayload(docid), limits);
    if (!reply) {
        return reply.error();
    }
    const Result<double> zoom = required(reply->real("zoom"));
    if (!zoom) {
        return zoom.error();
    }
    ViewPlace place;
    place.documentWidth = reply->wideInteger("documentWidth").value_or(0);
    place.documentHeight = reply->wideInteger("documentHeight").value_or(0);
    place.view = rectangle(*reply);
    place.zoom = *zoom;
    place.smallestZoom = reply->real("smallestZoom").value_or(*zoom);
    place.largestZoom = reply->real("largestZoom").value_or(*zoom);
    place.fit = reply->real("fit").value_or(*zoom);
    place.part = number(*reply, "part");
    place.parts = number(*reply, "parts");
    place.hit = reply->integer("hit").value_or(-1);
    place.hits = number(*reply, "hits");
    place.isMoving = reply->boolean("moving").value_or(false);
    return place;
}

Failure scrollTo(const Bus& bus, int docid, Point at, const CallLimits& limits) {
    return command(bus, CATEGORY, "scrollTo", withPoint(documentPayload(docid), at), limits);
}

Failure zoomTo(const Bus& bus, int docid, double zoom, std::optional<Point> about, const CallLimits& limits) {
    JsonMembers payload = documentPayload(docid);
    payload.add("zoom", zoom);
    return command(bus, CATEGORY, "zoomTo",
                   about ? withPoint(std::move(payload), *about) : std::move(payload), limits);
}

Result<std::string> getLink(const Bus& bus, int docid, const CallLimits& limits) {
    const Result<JsonMembers> reply = query(bus, CATEGORY, "getLink", documentPayload(docid), limits);
    return reply ? required(reply->string("link")) : reply.error();
}

Result<Hit> search(const Bus& bus, int docid, const std::string& text, const SearchOptions& options,
                   const CallLimits& limits) {
    JsonMembers payload = documentPayload(docid);
    payload.add("search", text).add("matchCase", options.matchCase).add("wholeWords", options.wholeWords);
    return queryHit(bus, "search", payload, limits);
}

Result<Hit> nextResult(const Bus& bus, int docid, const CallLimits& limits) {
    return queryHit(bus, "nextResult", documentPayload(docid), limits);
}

Result<Hit> previousResult(const Bus& bus, int docid, const CallLimits& limits) {
    return queryHit(bus, "previousResult", documentPayload(docid), limits);
}

Failure select(const Bus& bus, int docid, SelectUnit unit, Point at, const CallLimits& limits) {
    constexpr const char* WORDS[] = {"none", "word", "line", "all"};
    JsonMembers payload = documentPayload(docid);
    payload.add("unit", std::string(WORDS[static_cast<size_t>(unit)]));
    return command(bus, CATEGORY, "select", withPoint(std::move(payload), at), limits);
}

Failure moveSelectionEnd(const Bus& bus, int docid, SelectEnd end, Point to, const CallLimits& limits) {
    JsonMembers payload = documentPayload(docid);
    payload.add("end", std::string(end == SelectEnd::Start ? "start" : "end"));
    return command(bus, CATEGORY, "select", withPoint(std::move(payload), to), limits);
}

Result<Selection> getSelection(const Bus& bus, int docid, const CallLimits& limits) {
    const Result<JsonMembers> reply = query(bus, CATEGORY, "getSelection", documentPayload(docid), limits);
    if (!reply) {
        return reply.error();
    }
    Result<std::string> selected = required(reply->string("text"));
    if (!selected) {
        return selected.error();
    }
    Selection selection{std::move(*selected), {}};
    for (const JsonMembers& element : reply->list("rectangles").value_or(std::vector<JsonMembers>())) {
        selection.rectangles.push_back(rectangle(element));
    }
    return selection;
}

Result<std::vector<TextLine>> getText(const Bus& bus, int docid, const CallLimits& limits) {
    return queryList<TextLine>(
        bus, "getText", docid, "lines",
        [](const JsonMembers& line) {
            return TextLine{text(line, "text"), rectangle(line)};
        },
        limits);
}

Result<std::vector<OutlineEntry>> getOutline(const Bus& bus, int docid, const CallLimits& limits) {
    return queryList<OutlineEntry>(
        bus, "getOutline", docid, "entries",
        [](const JsonMembers& entry) {
            return OutlineEntry{text(entry, "title"), number(entry, "level"), number(entry, "part")};
        },
        limits);
}

Failure goTo(const Bus& bus, int docid, int entry, const CallLimits& limits) {
    return command(bus, CATEGORY, "goTo", documentPayload(docid).add("entry", entry), limits);
}

Result<Cell> getCell(const Bus& bus, int docid, std::optional<CellAddress> at, const CallLimits& limits) {
    JsonMembers payload = documentPayload(docid);
    if (at) {
        payload.add("column", at->column).add("row", at->row);
    }
    const Result<JsonMembers> reply = query(bus, CATEGORY, "getCell", payload, limits);
    if (!reply) {
        return reply.error();
    }
    Result<std::string> address = required(reply->string("address"));
    if (!address) {
        return address.error();
    }
    return Cell{{number(*reply, "column"), number(*reply, "row")},
                std::move(*address),
                text(*reply, "text"),
                text(*reply, "formula"),
                text(*reply, "comment"),
                rectangle(*reply)};
}

Failure getThumbnail(const Bus& bus, int docid, int part, const FrameBuffer& picture,
                     const CallLimits& limits) {
    JsonMembers payload = documentPayload(docid);
    payload.add("part", part);
    return command(bus, CATEGORY, "getThumbnail", withFrame(std::move(payload), picture), limits);
}

Failure exportTo(const Bus& bus, int docid, ExportFormat format, const std::string& path,
                 const CallLimits& limits) {
    return command(bus, CATEGORY, "export",
                   documentPayload(docid)
                       .add("format", std::string(format == ExportFormat::Pdf ? "pdf" : "text"))
                       .add("path", path),
                   limits);
}

Failure resize(const Bus& bus, int docid, const FrameBuffer& frame, const CallLimits& limits) {
    return command(bus, CATEGORY, "resize", withFrame(documentPayload(docid), frame), limits);
}

Failure cancel(const Bus& bus, int docid, const std::string& owner) {
    return bus.post(CATEGORY, "cancel", documentPayload(docid).text(), owner);
}

} // namespace lectern::touch
