// SPDX-License-Identifier: Apache-2.0
// Arguments of the sub-commands that print information about a document.
#include "client/command/CommandLine.h"

namespace lectern {

namespace {

// The options that all of them have.
struct PrintOptions {
    std::vector<GOptionEntry> entries() {
        std::vector<GOptionEntry> all = view.entries();
        all.insert(all.begin(), {passwordEntry(password), jsonEntry(json)});
        return all;
    }
    std::optional<Misuse> read(const CommandLine& line, PrintArguments& arguments) const {
        arguments.file = line.operand();
        arguments.password = password.optional();
        arguments.json = json != FALSE;
        return view.read(arguments.file, arguments.type, arguments.view);
    }

    TextOption password;
    gboolean json = FALSE;
    ViewOptions view;
};

Parsed<PrintArguments> parsePlain(const char* subcommand, const char* summary, const Words& words) {
    PrintOptions options;
    CommandLine line(subcommand, {"FILE"}, summary);
    if (auto refusal = line.parse(words, options.entries())) {
        return asParsed<PrintArguments>(std::move(*refusal));
    }
    PrintArguments arguments;
    if (auto misuse = options.read(line, arguments)) {
        return *misuse;
    }
    return arguments;
}

} // namespace

Parsed<PrintArguments> parseInfo(const Words& words) {
    return parsePlain("info", "Prints a document's properties.", words);
}

Parsed<PrintArguments> parseSheets(const Words& words) {
    return parsePlain("sheets", "Prints the number and name of each sheet of a spreadsheet.", words);
}

Parsed<PrintArguments> parseSlides(const Words& words) {
    return parsePlain("slides", "Prints the number and title of each slide of a presentation.", words);
}

Parsed<NoteArguments> parseNote(const Words& words) {
    PrintOptions options;
    TextOption slide;
    CommandLine line("note", {"FILE"}, "Prints the speaker's note of a slide.", "FILE --slide N");
    std::vector<GOptionEntry> entries = options.entries();
    entries.push_back(textEntry("slide", 0, slide, "The slide, from 1", "N"));
    if (auto refusal = line.parse(words, std::move(entries))) {
        return asParsed<NoteArguments>(std::move(*refusal));
    }
    if (!slide.given()) {
        return Misuse{"the slide is missing; add --slide N"};
    }
    NoteArguments arguments;
    std::optional<Misuse> misuse = options.read(line, arguments.print);
    if (!misuse) {
        misuse = readNumber(slide, "slide", arguments.slide);
    }
    if (misuse) {
        return *misuse;
    }
    return arguments;
}

Parsed<SearchArguments> parseSearch(const Words& words) {
    PrintOptions options;
    TextOption sheet;
    CommandLine line("search", {"FILE", "TEXT"},
                     "Counts how often a text occurs in a document, and says on which sheets or slides.");
    std::vector<GOptionEntry> entries = options.entries();
    entries.push_back(
        textEntry("sheet", 0, sheet, "Search only this sheet, from 1 (spreadsheets only)", "N"));
    if (auto refusal = line.parse(words, std::move(entries))) {
        return asParsed<SearchArguments>(std::move(*refusal));
    }
    SearchArguments arguments;
    arguments.text = line.operand(1);
    std::optional<Misuse> misuse = options.read(line, arguments.print);
    if (!misuse) {
        misuse = readNumber(sheet, "sheet", arguments.sheet);
    }
    if (misuse) {
        return *misuse;
    }
    return arguments;
}

} // namespace lectern
