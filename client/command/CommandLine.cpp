// SPDX-License-Identifier: Apache-2.0
#include "client/command/CommandLine.h"

#include "client/command/Values.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace lectern {

namespace {

std::string joined(const std::vector<const char*>& words) {
    std::string text;
    for (const char* word : words) {
        text += (text.empty() ? "" : " ") + std::string(word);
    }
    return text;
}

} // namespace

GOptionEntry textEntry(const char* name, char letter, TextOption& text, const char* description,
                       const char* argument) {
    return {name, letter, G_OPTION_FLAG_NONE, G_OPTION_ARG_FILENAME, &text.value, description, argument};
}

GOptionEntry flagEntry(const char* name, char letter, gboolean& flag, const char* description) {
    return {name, letter, G_OPTION_FLAG_NONE, G_OPTION_ARG_NONE, &flag, description, nullptr};
}

GOptionEntry passwordEntry(TextOption& password) {
    return textEntry("password", 'p', password, "Password of a protected document", "P");
}

GOptionEntry sizeEntry(TextOption& size) {
    return textEntry("size", 's', size, "Size of the view in pixels (default 480x800)", "WxH");
}

GOptionEntry jsonEntry(gboolean& json) {
    return flagEntry("json", 'j', json, "Print the service's JSON reply");
}

Misuse wrongValue(const TextOption& text, const char* why) {
    return {std::string("'") + text.value + "' " + why};
}

std::optional<Misuse> readSize(const TextOption& text, int& width, int& height) {
    if (text.given()) {
        const auto sides = parseSize(text.value);
        if (!sides) {
            return wrongValue(
                text, "is not a valid size; use WIDTHxHEIGHT, such as 480x800, with sides of 1 to 16384");
        }
        std::tie(width, height) = *sides;
    }
    return std::nullopt;
}

std::optional<Misuse> readNumber(const TextOption& text, const char* what, int& number) {
    std::optional<int> read = number;
    std::optional<Misuse> misuse = readNumber(text, what, read);
    number = *read;
    return misuse;
}

std::optional<Misuse> readNumber(const TextOption& text, const char* what, std::optional<int>& number) {
    if (text.given()) {
        const std::optional<int> count = parseCount(text.value);
        if (!count) {
            return wrongValue(
                text, (std::string("is not a valid ") + what + " number; numbers start at 1").c_str());
        }
        number = count;
    }
    return std::nullopt;
}

CommandLine::CommandLine(const char* subcommand, std::vector<const char*> operands, const char* summary,
                         const char* usage)
    : mName(std::string("lectern ") + subcommand), mNames(std::move(operands)),
      mContext(g_option_context_new(usage != nullptr ? usage : joined(mNames).c_str())) {
    g_option_context_set_help_enabled(mContext.get(), FALSE);
    g_option_context_set_summary(mContext.get(), summary);
}

std::optional<CommandLine::Refusal> CommandLine::parse(const Words& words,
                                                       std::vector<GOptionEntry> entries) {
    entries.push_back(flagEntry("help", 'h', mHelp, "Show this help and exit"));
    entries.push_back({G_OPTION_REMAINING, 0, G_OPTION_FLAG_NONE, G_OPTION_ARG_FILENAME_ARRAY,
                       &mOperands.words, nullptr, nullptr});
    entries.push_back({});
    g_option_context_add_main_entries(mContext.get(), entries.data(), nullptr);
    g_set_prgname(mName.c_str());
    StringArray arguments{copyOf(words)};
    GLibHolder<GError> failure;
    if (g_option_context_parse_strv(mContext.get(), &arguments.words, out(failure)) == FALSE) {
        return Misuse{failure->message};
    }
    if (mHelp != FALSE) {
        const GLibHolder<char> help(g_option_context_get_help(mContext.get(), TRUE, nullptr));
        return Help{help.get()};
    }
    return checkOperands();
}

char** CommandLine::copyOf(const Words& words) const {
    char** copy = g_new0(char*, words.size() + 2);
    copy[0] = g_strdup(mName.c_str());
    for (size_t i = 0; i < words.size(); ++i) {
        copy[i + 1] = g_strdup(words[i].c_str());
    }
    return copy;
}

Words CommandLine::operands() const {
    return mOperands.words == nullptr
               ? Words()
               : Words(mOperands.words, mOperands.words + g_strv_length(mOperands.words));
}

std::optional<Misuse> CommandLine::checkOperands() const {
    const size_t count = operands().size();
    if (count < mNames.size()) {
        return Misuse{std::string(mNames[count]) + " is missing"};
    }
    if (count > mNames.size() && !mMore) {
        return Misuse{"'" + operand(mNames.size()) +
                      "' is an unexpected argument; put quotes around a value that has spaces"};
    }
    return std::nullopt;
}

} // namespace lectern
