// SPDX-License-Identifier: Apache-2.0
#include "client/command/Subcommands.h"

#include "client/command/Commands.h"

#include <algorithm>
#include <cstdio>

namespace lectern {

namespace {

// Runs a sub-command and destroys its objects; after an interruption, ends the
// process by the same signal. "serve" runs until a signal comes, so for it a
// signal is not an interruption.
template<auto run, typename Arguments>
int perform(const Arguments& arguments) {
    int status = STATUS_DONE;
    int signal = 0;
    {
        Interrupt interrupt;
        status = run(arguments, interrupt);
        signal = interrupt.signal();
    }
    if (signal != 0 && status != STATUS_DONE) {
        dieOfSignal(signal);
    }
    return status;
}

template<auto parse, auto run>
int parseAndRun(const Words& words) {
    const auto parsed = parse(words);
    if (const auto* help = std::get_if<Help>(&parsed)) {
        std::fputs(help->text.c_str(), stdout);
        return STATUS_DONE;
    }
    if (const auto* misuse = std::get_if<Misuse>(&parsed)) {
        std::fprintf(stderr, "lectern: %s\nTry '--help'.\n", misuse->text.c_str());
        return STATUS_MISUSE;
    }
    return perform<run>(std::get<0>(parsed));
}

constexpr Subcommand ALL[] = {
    {"view", "[FILE...]", "Read documents in a window", parseAndRun<parseView, runView>},
    {"open", "FILE -o OUT.png", "Save a document's view as a PNG picture", parseAndRun<parseOpen, runOpen>},
    {"info", "FILE", "Print a document's properties", parseAndRun<parseInfo, runInfo>},
    {"sheets", "FILE", "Print the sheets of a spreadsheet", parseAndRun<parseSheets, runSheets>},
    {"slides", "FILE", "Print the slides of a presentation", parseAndRun<parseSlides, runSlides>},
    {"note", "FILE --slide N", "Print the note of a slide", parseAndRun<parseNote, runNote>},
    {"search", "FILE TEXT", "Count how often a text occurs", parseAndRun<parseSearch, runSearch>},
    {"play", "SCRIPT FILE -o FOLDER", "Replay timed touch input and save pictures",
     parseAndRun<parsePlay, runPlay>},
    {"serve", "", "Run the document service on a private bus", parseAndRun<parseServe, runServe>},
    {"call", "CATEGORY METHOD JSON", "Call a method of the service", parseAndRun<parseCall, runCall>},
};

} // namespace

std::span<const Subcommand> subcommands() {
    return ALL;
}

std::string generalHelp() {
    constexpr size_t WIDTH = 30;
    std::string text = "Usage:\n"
                       "  lectern COMMAND [OPTION…] …\n"
                       "\n"
                       "Shows word-processing documents, spreadsheets and presentations.\n"
                       "\n"
                       "Commands:\n";
    for (const Subcommand& subcommand : ALL) {
        std::string line = std::string("  ") + subcommand.name + " " + subcommand.operands;
        line.resize(WIDTH, ' ');
        text += line + subcommand.summary + "\n";
    }
    return text + "\n"
                  "Options:\n"
                  "  -h, --help                  Show this help and exit\n"
                  "  --version                   Show the version and exit\n"
                  "\n"
                  "'lectern COMMAND --help' lists a command's options; see lectern(1) for details.\n";
}

int runSubcommand(std::string_view name, const Words& words) {
    const auto* found = std::find_if(std::begin(ALL), std::end(ALL),
                                     [name](const Subcommand& known) { return name == known.name; });
    if (found == std::end(ALL)) {
        std::fprintf(stderr, "lectern: unknown command '%.*s'\nTry 'lectern --help'.\n",
                     static_cast<int>(name.size()), name.data());
        return STATUS_MISUSE;
    }
    return found->run(words);
}

} // namespace lectern
