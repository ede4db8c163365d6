// SPDX-License-Identifier: Apache-2.0
// The parsed and checked arguments of the lectern command's sub-commands.
// Sheets and slides are numbered from 1. A file named "-" is standard input.
#pragma once

#include "client/lib/ScrollPlan.h"
#include <lectern/Document.h>

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace lectern {

// How a document is opened.
struct ViewArguments {
    Manners manners = Manners::Touch;
    double dpi = 72.0;
    DocumentKind kind = DocumentKind::Unknown; // by default the file's contents tell it
};

struct OpenArguments {
    std::string file;
    std::string output;
    int width = 480;
    int height = 800;
    std::optional<std::string> password = {};
    double zoom = 1.0;
    Point scroll;
    bool wide = false;
    std::optional<int> sheet;
    std::optional<int> slide;
    std::optional<std::string> search;
    int hit = 1; // number of the hit to show, from 1; the last hit if there are fewer
    std::optional<std::string> type = {}; // of the document on standard input
    ViewArguments view = {};
};

// Arguments of the sub-commands that print information about a document.
struct PrintArguments {
    std::string file;
    std::optional<std::string> password = {};
    bool json = false;                    // print the service's reply unchanged
    std::optional<std::string> type = {}; // of the document on standard input
    ViewArguments view = {};
};

struct NoteArguments {
    PrintArguments print;
    int slide = 1;
};

struct SearchArguments {
    PrintArguments print;
    std::string text;
    std::optional<int> sheet = {}; // of a spreadsheet; without a value all sheets
};

struct PlayArguments {
    std::string script;
    std::string file;
    std::string folder; // folder for the frames
    int width = 480;
    int height = 800;
    std::optional<std::string> password = {};
    std::optional<std::string> type = {}; // of the document on standard input
    ViewArguments view = {};
};

struct CallArguments {
    std::string category; // with the leading slash
    std::string method;
    std::string payload; // a JSON object
};

struct ServeArguments {};

// Arguments of the sub-command that shows documents in windows.
struct WindowArguments {
    std::vector<std::string> files;
};

// Help text to print instead of running the sub-command.
struct Help {
    std::string text;
};
struct Misuse {
    std::string text; // describes the mistake in the arguments
};

template<typename Arguments>
using Parsed = std::variant<Arguments, Help, Misuse>;

// The words after the sub-command's name.
using Words = std::vector<std::string>;

Parsed<OpenArguments> parseOpen(const Words& words);
Parsed<PrintArguments> parseInfo(const Words& words);
Parsed<PrintArguments> parseSheets(const Words& words);
Parsed<PrintArguments> parseSlides(const Words& words);
Parsed<NoteArguments> parseNote(const Words& words);
Parsed<SearchArguments> parseSearch(const Words& words);
Parsed<PlayArguments> parsePlay(const Words& words);
Parsed<CallArguments> parseCall(const Words& words);
Parsed<ServeArguments> parseServe(const Words& words);
Parsed<WindowArguments> parseView(const Words& words);

} // namespace lectern
