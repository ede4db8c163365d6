// SPDX-License-Identifier: Apache-2.0
#include "client/command/Commands.h"
#include "client/command/Listing.h"
#include "client/command/Moves.h"
#include "client/command/OpenDocument.h"
#include "client/lib/Calls.h"

namespace lectern {

namespace {

// Returns, for example, "12 hits for 'boat'".
std::string hitsText(DocumentKind kind, int hits, const SearchArguments& arguments) {
    const std::string text = "'" + onOneLine(arguments.text) + "'";
    if (kind == DocumentKind::Presentation) {
        return "hits for " + text + " in a presentation are not counted; to see them, run: " +
               "lectern open FILE -o OUT.png --search TEXT\n";
    }
    const std::string count = hits == 0 ? "no hits" : hits == 1 ? "1 hit" : std::to_string(hits) + " hits";
    const bool ofSheet = kind == DocumentKind::Spreadsheet;
    return count + " for " + text +
           (ofSheet ? " in sheet " + std::to_string(arguments.sheet.value_or(1)) : "") + "\n";
}

Failure goToWhereToLook(Document& document, const SearchArguments& arguments, const CallLimits& limits) {
    if (!arguments.sheet) {
        return std::nullopt;
    }
    const Failure failure = requireKind(document, DocumentKind::Spreadsheet, "--sheet");
    return failure ? failure : goToSheet(document, *arguments.sheet, limits);
}

} // namespace

int runSearch(const SearchArguments& arguments, Interrupt& interrupt) {
    const auto work = [&](Document& document, const CallLimits& limits) -> Failure {
        if (Failure failure = goToWhereToLook(document, arguments, limits)) {
            return failure;
        }
        const Result<std::string> reply = document.bus().call(
            "/common", "Search", documentPayload(document.docid()).add("search", arguments.text).text(),
            limits);
        if (!reply) {
            return reply.error();
        }
        if (arguments.print.json) {
            return print(*reply + "\n");
        }
        const std::optional<JsonMembers> members = JsonMembers::parse(*reply);
        const Result<int> hits = required(members ? members->integer("resultcount") : std::nullopt);
        return hits ? print(hitsText(document.kind(), *hits, arguments)) : hits.error();
    };
    return withDocument(arguments.print.file, {.password = arguments.print.password}, interrupt, work);
}

} // namespace lectern
