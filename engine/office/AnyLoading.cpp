// SPDX-License-Identifier: Apache-2.0
#include "engine/office/AnyLoading.h"

#include "engine/layout/FileContents.h"
#include "engine/layout/SeparatedValues.h"
#include "engine/layout/TextEncoding.h"
#include "engine/office/Conversion.h"
#include "engine/office/TemporaryCopy.h"
#include "engine/office/word/PageStyles.h"
#include "modules/ModuleResults.h"

#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <strings.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

// The suite reads a mebibyte of text in a second or two, and texts are copied in memory.
constexpr std::uintmax_t MOST_TEXT = std::uintmax_t{32} << 20;

// By these extensions the suite reads any file as text.
constexpr const char* TEXT_EXTENSIONS[] = {".txt", ".csv", ".tsv", ".tab", ".text", ".log"};

bool hasTextExtension(const std::string& path) {
    const std::string extension = extensionOf(path);
    return std::any_of(std::begin(TEXT_EXTENSIONS), std::end(TEXT_EXTENSIONS),
                       [&](const char* each) { return strcasecmp(extension.c_str(), each) == 0; });
}

std::string headOf(const std::string& path) {
    std::string head(ENOUGH_CONTENTS, '\0');
    std::ifstream in(path, std::ios::binary);
    in.read(head.data(), static_cast<std::streamsize>(head.size()));
    head.resize(static_cast<size_t>(in.gcount()));
    return head;
}

// The copy that the suite reads in place of a file; without one it reads the file.
using Copy = std::unique_ptr<TemporaryCopy>;

int32_t copyInto(Copy& copy, const AnyFile& file, const std::string& extension, const std::string& contents) {
    copy = std::make_unique<TemporaryCopy>(file.temporaryDirectory, extension, contents);
    return copy->path().empty() ? MODULE_FAILED : MODULE_OK;
}

// A list that is read from a text file is named after the file.
void nameSheet(const Reference<css::frame::XModel>& model, const std::string& path) {
    const Reference<css::sheet::XSpreadsheetDocument> document(model, UNO_QUERY_THROW);
    const Reference<css::container::XIndexAccess> sheets(document->getSheets(), UNO_QUERY_THROW);
    const Reference<css::container::XNamed> sheet(sheets->getByIndex(0), UNO_QUERY_THROW);
    sheet->setName("Sheet1");
    try {
        // The suite may keep the name before, if this one has characters that none may have.
        sheet->setName(toUnoText(std::filesystem::path(path).stem().string()));
    } catch (const css::uno::Exception&) {
        // So it stays.
    }
}

// Values of a list as they stand: as numbers and dates where they are some, and no
// formulas, which could come from anywhere.
Import listImport(const SeparatedValues& values) {
    const std::string separator = std::to_string(static_cast<unsigned char>(values.separator));
    return {"Text - txt - csv (StarCalc)",
            separator + ",34,76," + std::to_string(values.firstLine) +
                ",,0,false,true,false,false,false,0,false",
            "calc8", ".ods"};
}

int32_t listCopy(Office::Private& office, const AnyFile& file, Copy& copy) {
    const std::string bytes = bytesOf(file.path);
    const std::string utf8 = toUtf8(bytes, detectTextEncoding(bytes));
    Copy text;
    if (const int32_t result = copyInto(text, file, ".csv", utf8); result != MODULE_OK) {
        return result;
    }
    return convert(office, text->path(), listImport(separatedValuesOf(utf8)), file.temporaryDirectory, copy,
                   [&](const Reference<css::frame::XModel>& model) { nameSheet(model, file.path); });
}

// The suite gives a page of the web a page style of its own, on its first block. Without it
// the text has the style that all texts have, whose margins a screen does not show.
void useOnePageStyle(const Reference<css::frame::XModel>& model) {
    const Reference<css::text::XTextDocument> document(model, UNO_QUERY);
    if (!document.is()) {
        return;
    }
    const Reference<css::container::XEnumerationAccess> blocks(document->getText(), UNO_QUERY_THROW);
    const auto all = blocks->createEnumeration();
    while (all->hasMoreElements()) {
        removeBreaks(propertiesOf(Reference<css::uno::XInterface>(all->nextElement(), UNO_QUERY)));
    }
}

// The suite would lay HTML out as a page of the web, as wide as it likes.
int32_t htmlCopy(Office::Private& office, const AnyFile& file, DocumentKind kind, Copy& copy) {
    Copy html;
    if (const int32_t result = copyInto(html, file, ".html", bytesOf(file.path)); result != MODULE_OK) {
        return result;
    }
    const Import import = kind == DocumentKind::Sheet ? Import{"HTML (StarCalc)", "", "calc8", ".ods"}
                                                      : Import{"HTML (StarWriter)", "", "writer8", ".odt"};
    return convert(office, html->path(), import, file.temporaryDirectory, copy, useOnePageStyle);
}

int32_t textCopy(const AnyFile& file, Copy& copy) {
    const std::string bytes = bytesOf(file.path);
    return copyInto(copy, file, ".txt", toUtf8(bytes, detectTextEncoding(bytes)));
}

int32_t copyFor(Office::Private& office, const AnyFile& file, DocumentKind kind, FileContents contents,
                Copy& copy) {
    if (contents == FileContents::Other) {
        return hasTextExtension(file.path) ? copyInto(copy, file, "", bytesOf(file.path)) : MODULE_OK;
    }
    if (kind == DocumentKind::Slides) {
        return MODULE_WRONG_KIND;
    }
    if (std::filesystem::file_size(file.path) > MOST_TEXT) {
        return MODULE_TOO_LARGE;
    }
    if (contents == FileContents::Html) {
        return htmlCopy(office, file, kind, copy);
    }
    return kind == DocumentKind::Sheet ? listCopy(office, file, copy) : textCopy(file, copy);
}

} // namespace

int32_t loadAny(Office::Private& office, const AnyFile& file, DocumentKind kind, LoadedModel& model,
                const std::string& language) {
    const FileContents contents = contentsOf(headOf(file.path));
    Copy copy;
    int32_t result = copyFor(office, file, kind, contents, copy);
    if (result != MODULE_OK) {
        return result;
    }
    LoadedModel loaded;
    result = loadModel(office, copy ? copy->path() : file.path, file.password, file.temporaryDirectory,
                       loaded, language, file.progress);
    if (result != MODULE_OK) {
        return result;
    }
    if (contents == FileContents::Other && isReadAsText(loaded.model)) {
        return MODULE_DAMAGED; // the suite does not know it
    }
    model = std::move(loaded);
    return MODULE_OK;
}

} // namespace lectern::engine
