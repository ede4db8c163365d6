// SPDX-License-Identifier: Apache-2.0
#include "engine/office/OfficePrivate.h"

namespace lectern::engine {
namespace {

// Of the distribution's packages of the suite: the parts that lie outside of its folder,
// and the dictionaries for hyphenation, spelling and guessing a language.
constexpr const char* SUITE_FILES[] = {
    LECTERN_OFFICE_PROGRAM "/..", "/usr/share/libreoffice",   "/etc/libreoffice",      "/var/lib/libreoffice",
    "/usr/share/hyphen",          "/usr/share/hunspell",      "/usr/share/myspell",    "/usr/share/mythes",
    "/usr/share/libexttextcat",   "/usr/share/libnumbertext", "/usr/share/liblangtag",
};

constexpr const char* FONT_SETTINGS[] = {
    "/etc/fonts",       "/usr/share/fontconfig",  "/var/cache/fontconfig",
    "/usr/share/fonts", "/usr/local/share/fonts",
};

// The folders of fonts that the system's settings name.
void addFontFolders(std::vector<std::string>& paths) {
    // Fontconfig's, with its opaque types as void.
    const auto open = reinterpret_cast<void* (*)(void*)>(suiteFunction("FcConfigGetFontDirs"));
    const auto next = reinterpret_cast<const char* (*)(void*)>(suiteFunction("FcStrListNext"));
    const auto close = reinterpret_cast<void (*)(void*)>(suiteFunction("FcStrListDone"));
    void* const list = open != nullptr && next != nullptr && close != nullptr ? open(nullptr) : nullptr;
    if (list == nullptr) {
        return;
    }
    while (const char* folder = next(list)) {
        paths.emplace_back(folder);
    }
    close(list);
}

} // namespace

std::vector<std::string> Office::readPaths() const {
    std::vector<std::string> paths(std::begin(SUITE_FILES), std::end(SUITE_FILES));
    paths.insert(paths.end(), std::begin(FONT_SETTINGS), std::end(FONT_SETTINGS));
    paths.push_back(mPrivate->folder); // the settings, which all engines share
    addFontFolders(paths);
    return paths;
}

} // namespace lectern::engine
