// SPDX-License-Identifier: Apache-2.0
#include "client/command/PartSearch.h"

#include "base/GLibHolder.h"
#include "client/lib/Json.h"
#include <lectern/CommonCalls.h>
#include <lectern/ExcelCalls.h>
#include <lectern/ListReply.h>
#include <lectern/PptCalls.h>
#include <lectern/TouchCalls.h>

#include <glib.h>

#include <map>
#include <optional>
#include <utility>

namespace lectern {

namespace {

// A picture of the view and the slide that it shows. Two hits never look the same,
// because the view draws the current hit in a colour of its own.
struct SlidePicture {
    int slide = 0;
    std::vector<uint32_t> pixels;
    bool operator==(const SlidePicture&) const = default;
};

Result<SlidePicture> paintSlide(Document& document, const CallLimits& limits) {
    if (Failure failure = document.paint(limits)) {
        return *failure;
    }
    const FrameBuffer& frame = document.frame();
    const auto count = static_cast<size_t>(frame.width()) * static_cast<size_t>(frame.height());
    return SlidePicture{document.state().part, {frame.pixels(), frame.pixels() + count}};
}

// The service does not mark hits in notes, so a hit in the note of the first slide
// looks like none.
Result<bool> firstNoteHas(Document& document, const std::string& text, const CallLimits& limits) {
    const Result<std::string> reply = document.ask(ppt::getSlideNote(), limits);
    if (!reply) {
        return reply.error();
    }
    const std::optional<JsonMembers> members = JsonMembers::parse(*reply);
    const auto folded = [](const std::string& any) {
        return std::string(GLibHolder<char>(g_utf8_casefold(any.c_str(), -1)).get());
    };
    const std::string note = members ? members->string("note").value_or("") : "";
    return !text.empty() && folded(note).find(folded(text)) != std::string::npos;
}

std::vector<PartHits> listed(const std::map<int, int>& hitsOnSlides) {
    std::vector<PartHits> slides;
    slides.reserve(hitsOnSlides.size());
    for (const auto& [slide, hits] : hitsOnSlides) {
        slides.push_back({slide, hits});
    }
    return slides;
}

// Counts the steps from hit to hit until the first one comes again. A step that
// changes nothing ends the count too: then the search is gone.
Result<std::vector<PartHits>> countSteps(Document& document, const SlidePicture& first,
                                         const CallLimits& limits) {
    std::map<int, int> hits;
    SlidePicture current = first;
    for (bool more = true; more;) {
        ++hits[current.slide];
        if (Failure failure = document.ask(common::nextResult(), limits)) {
            return *failure;
        }
        Result<SlidePicture> next = paintSlide(document, limits);
        if (!next) {
            return next.error();
        }
        more = *next != first && *next != current;
        current = std::move(*next);
    }
    return listed(hits);
}

// With touch manners the service counts the hits, and each step tells the sheet or slide
// of its hit. Hits that it counts only later come with the steps. Returns nothing where
// the service does not search like that.
Result<std::optional<std::vector<PartHits>>> searchByTouch(Document& document, const std::string& text,
                                                           const CallLimits& limits) {
    const std::optional<std::vector<PartHits>> otherwise;
    if (document.manners() == Manners::Classic) {
        return otherwise;
    }
    std::map<int, int> hits;
    Result<touch::Hit> hit = document.ask(touch::search(text), limits);
    for (int count = 0; hit && count < hit->hits; ++count) {
        ++hits[hit->part];
        if (count + 1 < hit->hits) {
            hit = document.ask(touch::nextResult(), limits);
        }
    }
    if (hit || hit.error().name == "errNothingThere") {
        return std::optional(listed(hits));
    }
    if (hit.error().name == "errNotSupported") { // the module is without what this needs
        return otherwise;
    }
    return hit.error();
}

// Counts the hits by what the view shows.
Result<std::vector<PartHits>> searchShownSlides(Document& document, const std::string& text,
                                                const CallLimits& limits) {
    const Result<SlidePicture> before = paintSlide(document, limits);
    if (!before) {
        return before.error();
    }
    if (const auto searched = document.ask(common::search(text), limits); !searched) {
        return searched.error();
    }
    const Result<SlidePicture> first = paintSlide(document, limits);
    if (!first) {
        return first.error();
    }
    if (*first != *before) {
        return countSteps(document, *first, limits);
    }
    const Result<bool> inNote = firstNoteHas(document, text, limits);
    if (!inNote) {
        return inNote.error();
    }
    return *inNote ? countSteps(document, *first, limits) : std::vector<PartHits>();
}

// Counts the hits of each sheet, which the view shows in turn.
Result<std::vector<PartHits>> searchShownSheets(Document& document, const std::string& text,
                                                const CallLimits& limits) {
    const Result<std::string> list = document.ask(excel::getSheetList(), limits);
    if (!list) {
        return list.error();
    }
    const int count = readPartList(*list).count;
    std::vector<PartHits> found;
    for (int sheet = 0; sheet < count; ++sheet) {
        if (const auto shown = document.ask(excel::jumpToSheet(sheet), limits); !shown) {
            return shown.error();
        }
        const Result<int> hits = document.ask(common::search(text), limits);
        if (!hits) {
            return hits.error();
        }
        if (*hits > 0) {
            found.push_back({sheet, *hits});
        }
    }
    return found;
}

} // namespace

Result<std::vector<PartHits>> searchSheets(Document& document, const std::string& text,
                                           const CallLimits& limits) {
    Result<std::optional<std::vector<PartHits>>> found = searchByTouch(document, text, limits);
    if (!found) {
        return found.error();
    }
    return *found ? std::move(**found) : searchShownSheets(document, text, limits);
}

Result<std::vector<PartHits>> searchSlides(Document& document, const std::string& text,
                                           const CallLimits& limits) {
    Result<std::optional<std::vector<PartHits>>> found = searchByTouch(document, text, limits);
    if (!found) {
        return found.error();
    }
    return *found ? std::move(**found) : searchShownSlides(document, text, limits);
}

} // namespace lectern
