// SPDX-License-Identifier: Apache-2.0
#include "client/command/Commands.h"
#include "client/command/Listing.h"
#include "client/command/Moves.h"
#include "client/command/OpenDocument.h"
#include "client/lib/Json.h"
#include <lectern/PptCalls.h>

#include <cstdio>

namespace lectern {

namespace {

// The reply for a slide without a note is empty.
Failure printNote(const std::string& reply, const NoteArguments& arguments) {
    if (reply.empty()) {
        std::fprintf(stderr, "lectern: slide %d has no note\n", arguments.slide);
        return std::nullopt;
    }
    if (arguments.print.json) {
        return print(reply + "\n");
    }
    const std::optional<JsonMembers> members = JsonMembers::parse(reply);
    return print(onSeveralLines(members ? members->string("note").value_or("") : reply) + "\n");
}

} // namespace

int runNote(const NoteArguments& arguments, Interrupt& interrupt) {
    const auto work = [&](Document& document, const CallLimits& limits) -> Failure {
        if (Failure failure = goToSlide(document, arguments.slide, limits)) {
            return failure;
        }
        const Result<std::string> note = document.ask(ppt::getSlideNote(), limits);
        return note ? printNote(*note, arguments) : note.error();
    };
    return withDocument({arguments.print.file, arguments.print.type},
                        openOptions(arguments.print.view, arguments.print.password), interrupt, work);
}

} // namespace lectern
