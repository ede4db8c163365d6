// SPDX-License-Identifier: Apache-2.0
#include "client/command/Arguments.h"

#include <tuple>

#include "client/GLibHolder.h"
#include "client/command/Values.h"

namespace lectern {

namespace {

struct StringArray {
    ~StringArray() { g_strfreev(words); }
    char** words = nullptr;
};

// An option's text, as GLib fills it in. Read as a file name, which is to say
// as the bytes that were typed, whatever the locale.
struct Text {
    ~Text() { g_free(value); }
    bool given() const { return value != nullptr; }
    std::optional<std::string> optional() const {
        return given() ? std::optional<std::string>(value) : std::nullopt;
    }
    char* value = nullptr;
};

GOptionEntry textEntry(const char* name, char letter, Text& text, const char* description,
                       const char* argument) {
    return {name, letter, G_OPTION_FLAG_NONE, G_OPTION_ARG_FILENAME, &text.value, description, argument};
}

GOptionEntry flagEntry(const char* name, char letter, gboolean& flag, const char* description) {
    return {name, letter, G_OPTION_FLAG_NONE, G_OPTION_ARG_NONE, &flag, description, nullptr};
}

// One sub-command's line: its own options, --help, and what stands alone.
class Line {
public:
    Line(const char* subcommand, const char* operands, const char* summary)
        : mName(std::string("lectern ") + subcommand), mContext(g_option_context_new(operands)) {
        g_option_context_set_help_enabled(mContext.get(), FALSE);
        g_option_context_set_summary(mContext.get(), summary);
    }

    // Nothing when the options are fine; the entries' targets are then filled in.
    std::optional<std::variant<Help, Misuse>> parse(const Words& words, std::vector<GOptionEntry> entries) {
        entries.push_back(flagEntry("help", 'h', mHelp, "Show this help and exit"));
        entries.push_back({G_OPTION_REMAINING, 0, G_OPTION_FLAG_NONE, G_OPTION_ARG_FILENAME_ARRAY,
                           &mOperands.words, nullptr, nullptr});
        entries.push_back({});
        g_option_context_add_main_entries(mContext.get(), entries.data(), nullptr);
        g_set_prgname(mName.c_str());
        StringArray arguments{copyOf(words)};
        GError* failure = nullptr;
        if (g_option_context_parse_strv(mContext.get(), &arguments.words, &failure) == FALSE) {
            const GLibHolder<GError> owner(failure);
            return Misuse{failure->message};
        }
        if (mHelp != FALSE) {
            const GLibHolder<char> help(g_option_context_get_help(mContext.get(), TRUE, nullptr));
            return Help{help.get()};
        }
        return std::nullopt;
    }

    size_t operandCount() const { return mOperands.words == nullptr ? 0 : g_strv_length(mOperands.words); }
    std::string operand(size_t index = 0) const { return mOperands.words[index]; }

private:
    char** copyOf(const Words& words) const {
        char** copy = g_new0(char*, words.size() + 2);
        copy[0] = g_strdup(mName.c_str());
        for (size_t i = 0; i < words.size(); ++i) {
            copy[i + 1] = g_strdup(words[i].c_str());
        }
        return copy;
    }

    std::string mName;
    GLibHolder<GOptionContext> mContext;
    StringArray mOperands;
    gboolean mHelp = FALSE;
};

template<typename Arguments>
Parsed<Arguments> asParsed(std::variant<Help, Misuse> outcome) {
    return std::visit([](auto& alternative) { return Parsed<Arguments>(std::move(alternative)); }, outcome);
}

constexpr char passwordHelp[] = "Password of a protected document";

// Texts of options that are no plain words, read into the arguments.
struct OpenValues {
    Text size;
    Text zoom;
    Text scroll;
    Text hit;

    std::optional<Misuse> read(OpenArguments& arguments) const {
        if (size.given()) {
            const auto sides = parseSize(size.value);
            if (!sides) {
                return wrong(size, "is no size; give one like 480x800, sides 1 to 16384");
            }
            std::tie(arguments.width, arguments.height) = *sides;
        }
        if (zoom.given()) {
            const auto factor = parseFactor(zoom.value);
            if (!factor) {
                return wrong(zoom, "is no zoom; give a number above 0, like 1.5");
            }
            arguments.zoom = *factor;
        }
        if (scroll.given()) {
            const auto position = parsePosition(scroll.value);
            if (!position) {
                return wrong(scroll, "is no place; give one like 0,1200");
            }
            arguments.scroll = {position->first, position->second};
        }
        if (hit.given()) {
            const auto number = parseCount(hit.value);
            if (!number) {
                return wrong(hit, "is no hit; give a number from 1");
            }
            arguments.hit = *number;
        }
        return std::nullopt;
    }

private:
    static Misuse wrong(const Text& text, const char* why) {
        return {std::string("'") + text.value + "' " + why};
    }
};

} // namespace

Parsed<OpenArguments> parseOpen(const Words& words) {
    Text output;
    Text password;
    Text search;
    OpenValues values;
    gboolean wide = FALSE;
    Line line("open", "FILE -o OUT.png",
              "Writes a document's view into a PNG file, as it would stand on the screen.");
    if (auto outcome = line.parse(
            words,
            {textEntry("output", 'o', output, "The picture to write; an old one is replaced", "OUT.png"),
             textEntry("size", 's', values.size, "Size of the view in pixels (default 480x800)", "WxH"),
             textEntry("password", 'p', password, passwordHelp, "P"),
             textEntry("zoom", 'z', values.zoom, "Zoom by this factor, as two fingers would", "F"),
             textEntry("scroll", 0, values.scroll, "Move the view there, in document pixels (default 0,0)",
                       "X,Y"),
             flagEntry("wide", 'w', wide, "Lay text out wider than the view (word-processing only)"),
             textEntry("search", 0, search, "Mark what is found and move to the first hit there", "TEXT"),
             textEntry("hit", 0, values.hit, "With --search: go on to this hit, from 1", "N")})) {
        return asParsed<OpenArguments>(std::move(*outcome));
    }
    if (line.operandCount() != 1) {
        return Misuse{line.operandCount() == 0 ? "no FILE is given" : "more than one FILE is given"};
    }
    if (!output.given()) {
        return Misuse{"no picture to write is given; name one with -o OUT.png"};
    }
    OpenArguments arguments;
    arguments.file = line.operand();
    arguments.output = output.value;
    arguments.password = password.optional();
    arguments.wide = wide != FALSE;
    arguments.search = search.optional();
    if (values.hit.given() && !search.given()) {
        return Misuse{"--hit needs a --search"};
    }
    if (auto misuse = values.read(arguments)) {
        return *misuse;
    }
    return arguments;
}

Parsed<InfoArguments> parseInfo(const Words& words) {
    Text password;
    Line line("info", "FILE", "Prints a document's properties as the service's JSON text.");
    if (auto outcome = line.parse(words, {textEntry("password", 'p', password, passwordHelp, "P")})) {
        return asParsed<InfoArguments>(std::move(*outcome));
    }
    if (line.operandCount() != 1) {
        return Misuse{line.operandCount() == 0 ? "no FILE is given" : "more than one FILE is given"};
    }
    return InfoArguments{line.operand(), password.optional()};
}

Parsed<SearchArguments> parseSearch(const Words& words) {
    Text password;
    Line line("search", "FILE TEXT",
              "Prints how often a text occurs in a document, as the service's JSON text.");
    if (auto outcome = line.parse(words, {textEntry("password", 'p', password, passwordHelp, "P")})) {
        return asParsed<SearchArguments>(std::move(*outcome));
    }
    if (line.operandCount() != 2) {
        return Misuse{line.operandCount() < 2 ? "a FILE and a TEXT to look for are needed"
                                              : "more than one TEXT is given; quote it"};
    }
    return SearchArguments{line.operand(0), line.operand(1), password.optional()};
}

Parsed<ServeArguments> parseServe(const Words& words) {
    Line line("serve", nullptr,
              "Runs a private message bus with the document service on it until it is interrupted.");
    if (auto outcome = line.parse(words, {})) {
        return asParsed<ServeArguments>(std::move(*outcome));
    }
    if (line.operandCount() != 0) {
        return Misuse{"serve takes no operands"};
    }
    return ServeArguments{};
}

} // namespace lectern
