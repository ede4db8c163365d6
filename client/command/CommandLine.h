// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"
#include "client/command/Arguments.h"

#include <glib.h>

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace lectern {

// An option's text, as GLib fills it in. Read as a file name, which is to say
// as the bytes that were typed, whatever the locale.
struct TextOption {
    TextOption() = default;
    ~TextOption() { g_free(value); }
    TextOption(const TextOption&) = delete;
    TextOption& operator=(const TextOption&) = delete;

    bool given() const { return value != nullptr; }
    std::optional<std::string> optional() const {
        return given() ? std::optional<std::string>(value) : std::nullopt;
    }
    char* value = nullptr;
};

// Entries of options; letter 0 for none. The targets must outlive the parse.
GOptionEntry textEntry(const char* name, char letter, TextOption& text, const char* description,
                       const char* argument);
GOptionEntry flagEntry(const char* name, char letter, gboolean& flag, const char* description);
// Options that several sub-commands have.
GOptionEntry passwordEntry(TextOption& password);
GOptionEntry sizeEntry(TextOption& size);
GOptionEntry jsonEntry(gboolean& json);

// That a text is no value of its kind: "'9x' is no size; ...".
Misuse wrongValue(const TextOption& text, const char* why);
// Reads an option into a value, which stays as it is when the option is not given.
std::optional<Misuse> readSize(const TextOption& text, int& width, int& height);
std::optional<Misuse> readNumber(const TextOption& text, const char* what, int& number);
std::optional<Misuse> readNumber(const TextOption& text, const char* what, std::optional<int>& number);

// One sub-command's line: its own options, --help, and the operands, all of
// which are needed.
class CommandLine {
public:
    // operands: their names. usage: how the help shows them, if otherwise.
    CommandLine(const char* subcommand, std::vector<const char*> operands, const char* summary,
                const char* usage = nullptr);

    using Refusal = std::variant<Help, Misuse>;
    // Nothing when the line is fine; the entries' targets are then filled in.
    std::optional<Refusal> parse(const Words& words, std::vector<GOptionEntry> entries);
    // REQUIRES: the line is fine.
    std::string operand(size_t index = 0) const { return mOperands.words[index]; }

private:
    struct StringArray {
        ~StringArray() { g_strfreev(words); }
        char** words = nullptr;
    };

    char** copyOf(const Words& words) const;
    std::optional<Misuse> checkOperands() const;

    std::string mName;
    std::vector<const char*> mNames;
    GLibHolder<GOptionContext> mContext;
    StringArray mOperands;
    gboolean mHelp = FALSE;
};

template<typename Arguments>
Parsed<Arguments> asParsed(CommandLine::Refusal refusal) {
    return std::visit([](auto& alternative) { return Parsed<Arguments>(std::move(alternative)); }, refusal);
}

} // namespace lectern
