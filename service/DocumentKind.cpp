// SPDX-License-Identifier: Apache-2.0
#include "service/DocumentKind.h"

#include "excel/Excel.h"
#include "ppt/PPT.h"
#include "word/Word.h"

#include <glib.h>

#include <cstring>

namespace {

struct Extension {
    const char* name;
    doctype_t kind;
};

constexpr Extension EXTENSIONS[] = {
    {"xls", _EXCEL}, {"xlsx", _EXCEL}, {"doc", _WORD}, {"docx", _WORD},
    {"txt", _WORD},  {"ppt", _PPT},    {"pptx", _PPT},
};

template<typename View>
std::unique_ptr<OfficeBase> makeView(int width, int height, int docId, unsigned int dataStoreShmId) {
    return std::make_unique<View>(width, height, docId, dataStoreShmId);
}

} // namespace

doctype_t KindOf(const char* fileName) {
    const char* dot = std::strrchr(fileName, '.');
    if (dot == nullptr) {
        return _UNKNOWN;
    }
    for (const Extension& extension : EXTENSIONS) {
        if (g_ascii_strcasecmp(dot + 1, extension.name) == 0) {
            return extension.kind;
        }
    }
    return _UNKNOWN;
}

ViewMaker ViewMakerOf(doctype_t kind) {
    switch (kind) {
    case _EXCEL:
        return makeView<Excel>;
    case _WORD:
        return makeView<Word>;
    case _PPT:
        return makeView<PPT>;
    default:
        return nullptr;
    }
}
