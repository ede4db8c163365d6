// SPDX-License-Identifier: Apache-2.0
#include "service/DocumentKind.h"

#include "excel/Excel.h"
#include "ppt/PPT.h"
#include "touch/TouchExcel.h"
#include "touch/TouchPpt.h"
#include "touch/TouchWord.h"
#include "word/Word.h"

#include <glib.h>

#include <cstring>

namespace {

struct KindName {
    const char* name;
    doctype_t kind;
};

constexpr KindName EXTENSIONS[] = {
    {"xls", _EXCEL}, {"xlsx", _EXCEL}, {"doc", _WORD}, {"docx", _WORD},
    {"txt", _WORD},  {"ppt", _PPT},    {"pptx", _PPT},
};

constexpr KindName KIND_NAMES[] = {{"excel", _EXCEL}, {"word", _WORD}, {"ppt", _PPT}};

// The settings are what the view's constructor takes besides the usual ones.
template<typename View, typename... Settings>
ViewMaker makerOf(Settings... settings) {
    return [settings...](int width, int height, int docId, unsigned int dataStoreShmId) {
        return std::make_unique<View>(width, height, docId, dataStoreShmId, settings...);
    };
}

} // namespace

doctype_t KindOf(const char* fileName) {
    const char* dot = std::strrchr(fileName, '.');
    if (dot == nullptr) {
        return _UNKNOWN;
    }
    for (const KindName& extension : EXTENSIONS) {
        if (g_ascii_strcasecmp(dot + 1, extension.name) == 0) {
            return extension.kind;
        }
    }
    return _UNKNOWN;
}

doctype_t KindNamed(const char* name) {
    for (const KindName& kind : KIND_NAMES) {
        if (std::strcmp(name, kind.name) == 0) {
            return kind.kind;
        }
    }
    return _UNKNOWN;
}

ViewMaker ViewMakerOf(doctype_t kind) {
    switch (kind) {
    case _EXCEL:
        return makerOf<Excel>();
    case _WORD:
        return makerOf<Word>();
    case _PPT:
        return makerOf<PPT>();
    default:
        return nullptr;
    }
}

ViewMaker TouchViewMakerOf(doctype_t kind, double dotsPerInch) {
    switch (kind) {
    case _EXCEL:
        return makerOf<TouchExcel>(dotsPerInch);
    case _WORD:
        return makerOf<TouchWord>(dotsPerInch);
    case _PPT:
        return makerOf<TouchPpt>(dotsPerInch);
    default:
        return nullptr;
    }
}
