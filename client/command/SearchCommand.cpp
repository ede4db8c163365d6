// SPDX-License-Identifier: Apache-2.0
#include "client/command/Commands.h"
#include "client/command/Listing.h"
#include "client/command/Moves.h"
#include "client/command/OpenDocument.h"
#include "client/command/PartSearch.h"
#include "client/lib/Calls.h"
#include <lectern/CommonCalls.h>
#include <lectern/ExcelCalls.h>
#include <lectern/ListReply.h>
#include <lectern/PptCalls.h>

#include <numeric>

namespace lectern {

namespace {

// Returns, for example, "12 hits".
std::string hitsText(int hits) {
    return hits == 0 ? "no hits" : hits == 1 ? "1 hit" : std::to_string(hits) + " hits";
}

std::string quoted(const std::string& text) {
    return "'" + onOneLine(text) + "'";
}

Failure printHits(const std::string& reply, const SearchArguments& arguments, int hits) {
    if (arguments.print.json) {
        return print(reply + "\n");
    }
    const std::string where = arguments.sheet ? " in sheet " + std::to_string(*arguments.sheet) : "";
    return print(hitsText(hits) + " for " + quoted(arguments.text) + where + "\n");
}

// Searches the shown part of a document, and prints the number of hits, of which the
// service's reply tells.
Failure searchShown(Document& document, const SearchArguments& arguments, const CallLimits& limits,
                    int& hits) {
    const Result<std::string> reply = document.ask(common::search(arguments.text).request, limits);
    if (!reply) {
        return reply.error();
    }
    const std::optional<JsonMembers> members = JsonMembers::parse(*reply);
    const Result<int> count = required(members ? members->integer("resultcount") : std::nullopt);
    if (!count) {
        return count.error();
    }
    hits = *count;
    return printHits(*reply, arguments, hits);
}

// With touch manners a search goes through all sheets.
Failure searchSheetByTouch(Document& document, const SearchArguments& arguments, const CallLimits& limits,
                           int& hits) {
    const Result<std::vector<PartHits>> found = searchSheets(document, arguments.text, limits);
    if (!found) {
        return found.error();
    }
    for (const PartHits& part : *found) {
        hits += part.part == *arguments.sheet - 1 ? part.hits : 0;
    }
    return printHits(JsonMembers().add("resultcount", hits).text(), arguments, hits);
}

Failure searchSheet(Document& document, const SearchArguments& arguments, const CallLimits& limits,
                    int& hits) {
    Failure failure = requireKind(document, DocumentKind::Spreadsheet, "--sheet");
    if (!failure) {
        failure = goToSheet(document, *arguments.sheet, limits);
    }
    if (failure) {
        return failure;
    }
    return document.manners() == Manners::Touch ? searchSheetByTouch(document, arguments, limits, hits)
                                                : searchShown(document, arguments, limits, hits);
}

// The parts of a kind of document, and how they are searched.
struct Parts {
    const char* name; // of one part
    Result<std::vector<PartHits>> (*search)(Document&, const std::string& text, const CallLimits&);
    Call<std::string> (*list)();
};
constexpr Parts SHEETS = {"sheet", searchSheets, excel::getSheetList};
constexpr Parts SLIDES = {"slide", searchSlides, ppt::getSlideList};

// Returns, for example, {"resultcount": 3, "sheets": [{"sheet": 0, "resultcount": 3}]}.
std::string partsJson(const Parts& kind, const std::vector<PartHits>& found, int hits) {
    const std::string name = kind.name;
    std::string members;
    for (const PartHits& part : found) {
        members += (members.empty() ? "" : ", ") + ("{\"" + name + "\": " + std::to_string(part.part)) +
                   ", \"resultcount\": " + std::to_string(part.hits) + "}";
    }
    return "{\"resultcount\": " + std::to_string(hits) + ", \"" + name + "s\": [" + members + "]}\n";
}

// Returns one line for each part with hits: "  sheet 2, Berths: 3 hits".
std::string partsText(const Parts& kind, const std::vector<PartHits>& found, const PartList& list) {
    std::string lines;
    for (const PartHits& part : found) {
        const auto index = static_cast<size_t>(part.part);
        const std::string title = index < list.parts.size() ? onOneLine(list.parts[index].title) : "";
        lines += std::string("  ") + kind.name + " " + std::to_string(part.part + 1) +
                 (title.empty() ? "" : ", " + title) + ": " + hitsText(part.hits) + "\n";
    }
    return lines;
}

Failure searchParts(const Parts& kind, Document& document, const SearchArguments& arguments,
                    const CallLimits& limits, int& hits) {
    const Result<std::vector<PartHits>> found = kind.search(document, arguments.text, limits);
    if (!found) {
        return found.error();
    }
    hits = std::accumulate(found->begin(), found->end(), 0,
                           [](int sum, const PartHits& part) { return sum + part.hits; });
    if (arguments.print.json) {
        return print(partsJson(kind, *found, hits));
    }
    const Result<std::string> list = document.ask(kind.list(), limits);
    if (!list) {
        return list.error();
    }
    return print(hitsText(hits) + " for " + quoted(arguments.text) + "\n" +
                 partsText(kind, *found, readPartList(*list)));
}

Failure search(Document& document, const SearchArguments& arguments, const CallLimits& limits, int& hits) {
    if (arguments.sheet) {
        return searchSheet(document, arguments, limits, hits);
    }
    switch (document.kind()) {
    case DocumentKind::Spreadsheet:
        return searchParts(SHEETS, document, arguments, limits, hits);
    case DocumentKind::Presentation:
        return searchParts(SLIDES, document, arguments, limits, hits);
    default:
        return searchShown(document, arguments, limits, hits);
    }
}

} // namespace

int runSearch(const SearchArguments& arguments, Interrupt& interrupt) {
    int hits = 0;
    const auto work = [&](Document& document, const CallLimits& limits) -> Failure {
        return search(document, arguments, limits, hits);
    };
    const int status =
        withDocument({arguments.print.file, arguments.print.type},
                     openOptions(arguments.print.view, arguments.print.password), interrupt, work);
    return status == STATUS_DONE && hits == 0 ? STATUS_FAILED : status;
}

} // namespace lectern
