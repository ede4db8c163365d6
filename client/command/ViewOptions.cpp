// SPDX-License-Identifier: Apache-2.0
#include "client/command/CommandLine.h"
#include "client/command/InputFile.h"
#include "client/command/Values.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace lectern {

namespace {

struct KindName {
    std::string_view name;
    DocumentKind kind;
};

constexpr KindName KINDS[] = {
    {"word", DocumentKind::WordProcessing},
    {"excel", DocumentKind::Spreadsheet},
    {"ppt", DocumentKind::Presentation},
};

std::optional<Misuse> readKind(const TextOption& text, DocumentKind& kind) {
    if (text.given()) {
        const auto* found = std::find_if(std::begin(KINDS), std::end(KINDS),
                                         [&](const KindName& known) { return known.name == text.value; });
        if (found == std::end(KINDS)) {
            return wrongValue(text, "is not a kind of document; use word, excel or ppt");
        }
        kind = found->kind;
    }
    return std::nullopt;
}

std::optional<Misuse> readDpi(const TextOption& text, double& dpi) {
    constexpr double LEAST = 36.0;
    constexpr double MOST = 1200.0;
    if (text.given()) {
        const std::optional<double> dots = parseFactor(text.value);
        if (!dots || *dots < LEAST || *dots > MOST) {
            return wrongValue(text, "is not a valid number of dots per inch; use 36 to 1200");
        }
        dpi = *dots;
    }
    return std::nullopt;
}

} // namespace

std::vector<GOptionEntry> ViewOptions::entries() {
    return {textEntry("type", 't', mType, "Type of the document on standard input, with FILE -", "EXT"),
            textEntry("kind", 'k', mKind,
                      "Kind of the document: word, excel or ppt (default: by its contents)", "KIND"),
            flagEntry("classic", 0, mClassic, "Use the classic manners instead of those of touch screens")};
}

std::vector<GOptionEntry> ViewOptions::pictureEntries() {
    std::vector<GOptionEntry> all = entries();
    all.push_back(textEntry("dpi", 'd', mDpi, "Dots per inch of the screen (default 72)", "N"));
    return all;
}

std::optional<Misuse> ViewOptions::read(const std::string& file, std::optional<std::string>& type,
                                        ViewArguments& arguments) const {
    if (mClassic != FALSE && (mKind.given() || mDpi.given())) {
        return Misuse{std::string(mKind.given() ? "--kind" : "--dpi") + " and --classic cannot be combined"};
    }
    arguments.manners = mClassic != FALSE ? Manners::Classic : Manners::Touch;
    std::optional<Misuse> misuse = readType(file, type);
    if (!misuse) {
        misuse = readKind(mKind, arguments.kind);
    }
    return misuse ? misuse : readDpi(mDpi, arguments.dpi);
}

std::optional<Misuse> ViewOptions::readType(const std::string& file, std::optional<std::string>& read) const {
    if (file != STANDARD_INPUT) {
        return mType.given() ? std::optional(Misuse{"--type works with FILE - only"}) : std::nullopt;
    }
    if (!mType.given()) {
        return mKind.given() ? std::nullopt
                             : std::optional(Misuse{"the type of the document on standard input is missing; "
                                                    "add --type, such as --type docx"});
    }
    constexpr std::string_view KNOWN[] = {"doc", "docx", "txt", "xls", "xlsx", "ppt", "pptx"};
    if (std::find(std::begin(KNOWN), std::end(KNOWN), mType.value) == std::end(KNOWN)) {
        return wrongValue(mType, "is not a known type; use doc, docx, txt, xls, xlsx, ppt or pptx");
    }
    read = mType.value;
    return std::nullopt;
}

} // namespace lectern
