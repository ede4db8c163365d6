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

// The text of an option, filled in by GLib. Declared as a file name, so that
// GLib returns the bytes as typed, in any locale.
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

// Functions that create GOptionEntry structures; letter 0 means no short
// option. The targets must outlive the parse.
GOptionEntry textEntry(const char* name, char letter, TextOption& text, const char* description,
                       const char* argument);
GOptionEntry flagEntry(const char* name, char letter, gboolean& flag, const char* description);
// Options that several sub-commands share.
GOptionEntry passwordEntry(TextOption& password);
GOptionEntry sizeEntry(TextOption& size);
GOptionEntry jsonEntry(gboolean& json);

// The error for a text that is not a valid value: "'9x' is not a valid size; ...".
Misuse wrongValue(const TextOption& text, const char* why);
// Functions that convert an option's text to a value; the value is unchanged
// when the option is not given. Return the error for an invalid text.
std::optional<Misuse> readSize(const TextOption& text, int& width, int& height);
std::optional<Misuse> readNumber(const TextOption& text, const char* what, int& number);
std::optional<Misuse> readNumber(const TextOption& text, const char* what, std::optional<int>& number);

// The options of all sub-commands that open a document: how, and of which kind it is.
class ViewOptions {
public:
    std::vector<GOptionEntry> entries();
    // The same and the option for pictures.
    std::vector<GOptionEntry> pictureEntries();
    // Checks that a document on standard input comes with its type or kind, and only such
    // a document with its type.
    std::optional<Misuse> read(const std::string& file, std::optional<std::string>& type,
                               ViewArguments& arguments) const;

private:
    std::optional<Misuse> readType(const std::string& file, std::optional<std::string>& read) const;

    TextOption mType;
    TextOption mKind;
    TextOption mDpi;
    gboolean mClassic = FALSE;
};

// The command line of one sub-command: its own options, --help, and the
// operands, which are all required; more are allowed only with acceptMore().
class CommandLine {
public:
    // operands: the names of the operands. usage: their form in the help; by
    // default the names.
    CommandLine(const char* subcommand, std::vector<const char*> operands, const char* summary,
                const char* usage = nullptr);

    // Allows any number of operands after the named ones.
    void acceptMore() { mMore = true; }

    using Refusal = std::variant<Help, Misuse>;
    // Returns nothing when the command line is valid and fills in the entries'
    // targets; otherwise returns the help or the error.
    std::optional<Refusal> parse(const Words& words, std::vector<GOptionEntry> entries);
    // REQUIRES: parse has returned nothing.
    std::string operand(size_t index = 0) const { return mOperands.words[index]; }
    Words operands() const;

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
    bool mMore = false;
};

template<typename Arguments>
Parsed<Arguments> asParsed(CommandLine::Refusal refusal) {
    return std::visit([](auto& alternative) { return Parsed<Arguments>(std::move(alternative)); }, refusal);
}

} // namespace lectern
