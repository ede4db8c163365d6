// SPDX-License-Identifier: Apache-2.0
// The sub-commands "sheets" and "slides", which differ only in the request.
#include "client/command/Commands.h"
#include "client/command/Listing.h"
#include "client/command/OpenDocument.h"
#include <lectern/ExcelCalls.h>
#include <lectern/ListReply.h>
#include <lectern/PptCalls.h>

#include <cstdio>

namespace lectern {

namespace {

using ListCall = Call<std::string> (*)();

// Prints the list, with a note when the service's list was cut off.
Failure printListing(const PartList& list, const char* what) {
    if (Failure failure = print(partListing(list))) {
        return failure;
    }
    if (const auto listed = static_cast<int>(list.parts.size()); listed < list.count) {
        std::fprintf(stderr,
                     "lectern: there are %d %s; the service cut the list because the titles are too long\n",
                     list.count, what);
    }
    return std::nullopt;
}

int runList(const PrintArguments& arguments, Interrupt& interrupt, ListCall call, const char* what) {
    const auto work = [&](Document& document, const CallLimits& limits) -> Failure {
        const Result<std::string> reply = document.ask(call(), limits);
        if (!reply) {
            return reply.error();
        }
        return arguments.json ? print(*reply + "\n") : printListing(readPartList(*reply), what);
    };
    return withDocument({arguments.file, arguments.type}, openOptions(arguments.view, arguments.password),
                        interrupt, work);
}

} // namespace

int runSheets(const PrintArguments& arguments, Interrupt& interrupt) {
    return runList(arguments, interrupt, excel::getSheetList, "sheets");
}

int runSlides(const PrintArguments& arguments, Interrupt& interrupt) {
    return runList(arguments, interrupt, ppt::getSlideList, "slides");
}

} // namespace lectern
