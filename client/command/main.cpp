// SPDX-License-Identifier: Apache-2.0
// lectern: documents from the command line.
#include <cstdio>
#include <string_view>

#include "client/command/Commands.h"

namespace lectern {

namespace {

constexpr char generalHelp[] = "Usage:\n"
                               "  lectern COMMAND [OPTION…] …\n"
                               "\n"
                               "Shows word-processing documents, spreadsheets and presentations.\n"
                               "\n"
                               "Commands:\n"
                               "  open FILE -o OUT.png   Write a document's view into a picture\n"
                               "  info FILE              Print a document's properties\n"
                               "  search FILE TEXT       Print how often a text occurs\n"
                               "  serve                  Run the document service on a private bus\n"
                               "\n"
                               "Options:\n"
                               "  -h, --help             Show this help and exit\n"
                               "  --version              Show the version and exit\n"
                               "\n"
                               "lectern COMMAND --help tells more of a command; lectern(1) tells all.\n";

template<typename Arguments>
using Parse = Parsed<Arguments> (*)(const Words&);
template<typename Arguments>
using Run = int (*)(const Arguments&, Interrupt&);

// Ends by the signal that interrupted the work, once all is put away. To serve
// until a signal comes is no interruption: its status says so.
template<typename Arguments>
int perform(const Arguments& arguments, Run<Arguments> run) {
    int status = statusDone;
    int signal = 0;
    {
        Interrupt interrupt;
        status = run(arguments, interrupt);
        signal = interrupt.signal();
    }
    if (signal != 0 && status != statusDone) {
        dieOfSignal(signal);
    }
    return status;
}

template<typename Arguments>
int subcommand(const Words& words, Parse<Arguments> parse, Run<Arguments> run) {
    const Parsed<Arguments> parsed = parse(words);
    if (const auto* help = std::get_if<Help>(&parsed)) {
        std::fputs(help->text.c_str(), stdout);
        return statusDone;
    }
    if (const auto* misuse = std::get_if<Misuse>(&parsed)) {
        std::fprintf(stderr, "lectern: %s\nTry the option --help.\n", misuse->text.c_str());
        return statusMisuse;
    }
    return perform(std::get<Arguments>(parsed), run);
}

int dispatch(std::string_view name, const Words& words) {
    if (name == "open") {
        return subcommand<OpenArguments>(words, parseOpen, runOpen);
    }
    if (name == "info") {
        return subcommand<InfoArguments>(words, parseInfo, runInfo);
    }
    if (name == "search") {
        return subcommand<SearchArguments>(words, parseSearch, runSearch);
    }
    if (name == "serve") {
        return subcommand<ServeArguments>(words, parseServe, runServe);
    }
    if (name == "--help" || name == "-h" || name == "help") {
        std::fputs(generalHelp, stdout);
        return statusDone;
    }
    if (name == "--version") {
        std::puts("lectern " LECTERN_VERSION);
        return statusDone;
    }
    std::fprintf(stderr, "lectern: '%.*s' is no command\nTry lectern --help.\n",
                 static_cast<int>(name.size()), name.data());
    return statusMisuse;
}

} // namespace

} // namespace lectern

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs(lectern::generalHelp, stderr);
        return lectern::statusMisuse;
    }
    return lectern::dispatch(argv[1], lectern::Words(argv + 2, argv + argc));
}
