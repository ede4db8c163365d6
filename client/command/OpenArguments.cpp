// SPDX-License-Identifier: Apache-2.0
#include "client/command/CommandLine.h"
#include "client/command/Values.h"

namespace lectern {

namespace {

// The options' texts that must be converted.
struct OpenValues {
    TextOption size;
    TextOption zoom;
    TextOption scroll;
    TextOption sheet;
    TextOption slide;
    TextOption hit;
    ViewOptions view;

    std::optional<Misuse> read(OpenArguments& arguments) const {
        if (zoom.given()) {
            const auto factor = parseFactor(zoom.value);
            if (!factor) {
                return wrongValue(zoom, "is not a valid zoom factor; use a number above 0, such as 1.5");
            }
            arguments.zoom = *factor;
        }
        if (scroll.given()) {
            const auto position = parsePosition(scroll.value);
            if (!position) {
                return wrongValue(scroll, "is not a valid position; use X,Y, such as 0,1200");
            }
            arguments.scroll = {position->first, position->second};
        }
        std::optional<Misuse> misuse = readSize(size, arguments.width, arguments.height);
        if (!misuse) {
            misuse = readNumber(sheet, "sheet", arguments.sheet);
        }
        if (!misuse) {
            misuse = view.read(arguments.file, arguments.type, arguments.view);
        }
        if (!misuse) {
            misuse = readNumber(slide, "slide", arguments.slide);
        }
        return misuse ? misuse : readNumber(hit, "hit", arguments.hit);
    }
};

} // namespace

Parsed<OpenArguments> parseOpen(const Words& words) {
    TextOption output;
    TextOption password;
    TextOption search;
    OpenValues values;
    gboolean wide = FALSE;
    CommandLine line("open", {"FILE"}, "Saves a document's view as a PNG file, as a screen would show it.",
                     "FILE -o OUT.png");
    std::vector<GOptionEntry> entries = {
        textEntry("output", 'o', output, "The PNG file to write, replacing an old one; - is standard output",
                  "OUT.png"),
        sizeEntry(values.size),
        passwordEntry(password),
        textEntry("sheet", 0, values.sheet, "Show this sheet, from 1 (spreadsheets only)", "N"),
        textEntry("slide", 0, values.slide, "Show this slide, from 1 (presentations only)", "N"),
        textEntry("zoom", 'z', values.zoom, "Zoom by this factor, as a pinch does", "F"),
        textEntry("scroll", 0, values.scroll, "Scroll to this point, in document pixels (default 0,0)",
                  "X,Y"),
        flagEntry("wide", 'w', wide, "Lay text out wider than the view (word-processing only)"),
        textEntry("search", 0, search, "Mark all hits and move to the first one", "TEXT"),
        textEntry("hit", 0, values.hit, "With --search: go to this hit, from 1", "N")};
    const std::vector<GOptionEntry> view = values.view.pictureEntries();
    entries.insert(entries.end(), view.begin(), view.end());
    if (auto refusal = line.parse(words, std::move(entries))) {
        return asParsed<OpenArguments>(std::move(*refusal));
    }
    if (!output.given()) {
        return Misuse{"the output file is missing; add -o OUT.png"};
    }
    if (values.sheet.given() && values.slide.given()) {
        return Misuse{"--sheet and --slide cannot be combined"};
    }
    if (values.hit.given() && !search.given()) {
        return Misuse{"--hit needs --search"};
    }
    OpenArguments arguments;
    arguments.file = line.operand();
    arguments.output = output.value;
    arguments.password = password.optional();
    arguments.wide = wide != FALSE;
    arguments.search = search.optional();
    if (auto misuse = values.read(arguments)) {
        return *misuse;
    }
    return arguments;
}

} // namespace lectern
