// SPDX-License-Identifier: Apache-2.0
#include "engine/office/Exporting.h"

#include "engine/layout/TextEncoding.h"
#include "engine/office/AnyLoading.h"
#include "engine/office/Conversion.h"
#include "engine/office/OfficeGuard.h"
#include "engine/office/ReadersLanguage.h"

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/drawing/XDrawPagesSupplier.hpp>
#include <com/sun/star/drawing/XShapes.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/table/XCellRange.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/table/XTable.hpp>
#include <com/sun/star/text/XText.hpp>

#include <filesystem>
#include <fstream>

namespace lectern::engine {

using css::container::XIndexAccess;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

constexpr const char* SERVICES[] = {"com.sun.star.text.TextDocument",
                                    "com.sun.star.sheet.SpreadsheetDocument",
                                    "com.sun.star.presentation.PresentationDocument"};
constexpr const char* PDF_FILTERS[] = {"writer_pdf_Export", "calc_pdf_Export", "impress_pdf_Export"};

bool isOfKind(const Reference<css::frame::XModel>& model, DocumentKind kind) {
    const Reference<css::lang::XServiceInfo> info(model, UNO_QUERY);
    return info.is() && info->supportsService(OUString::createFromAscii(SERVICES[static_cast<size_t>(kind)]));
}

std::string utf8Of(const OUString& text) {
    return OUStringToOString(text, RTL_TEXTENCODING_UTF8).getStr();
}

// What the suite writes with one of its filters for plain text. It may add the name of a
// sheet to that of the file, so the file gets a folder for itself.
std::string written(const Reference<css::frame::XModel>& model, const std::string& target,
                    const std::string& filter, const std::string& options) {
    const std::filesystem::path folder = target + ".text";
    std::filesystem::create_directory(folder);
    store(model, folder / "text", filter, options);
    std::string text;
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
        text += toUtf8(bytesOf(file.path()), TextEncoding::Utf8); // without a byte order mark
    }
    std::filesystem::remove_all(folder);
    return text;
}

std::string textOfText(const Reference<css::frame::XModel>& model, const std::string& target) {
    return written(model, target, "Text (encoded)", "UTF8,LF,,,");
}

// Of each visible sheet its name, and the cells with tabs between the columns.
std::string textOfSheets(const Reference<css::frame::XModel>& model, const std::string& target) {
    const Reference<css::sheet::XSpreadsheetDocument> document(model, UNO_QUERY_THROW);
    const Reference<XIndexAccess> sheets(document->getSheets(), UNO_QUERY_THROW);
    std::string text;
    for (sal_Int32 i = 0; i < sheets->getCount(); ++i) {
        const Reference<css::container::XNamed> sheet(sheets->getByIndex(i), UNO_QUERY_THROW);
        if (property<bool>(propertiesOf(sheet), "IsVisible", true)) {
            text += (text.empty() ? "" : "\n") + utf8Of(sheet->getName()) + "\n";
            text += written(model, target, "Text - txt - csv (StarCalc)",
                            "9,,76,1,,0,false,true,false,false,false," + std::to_string(i + 1));
        }
    }
    return text;
}

void addTextOf(const Reference<css::uno::XInterface>& object, std::string& text);

void addTextOfTable(const Reference<css::table::XTable>& table, std::string& text) {
    const Reference<css::table::XCellRange> cells(table, UNO_QUERY_THROW);
    for (sal_Int32 row = 0; row < table->getRowCount(); ++row) {
        for (sal_Int32 column = 0; column < table->getColumnCount(); ++column) {
            addTextOf(cells->getCellByPosition(column, row), text);
        }
    }
}

// Adds the lines of a shape or a cell, and of all that it contains.
void addTextOf(const Reference<css::uno::XInterface>& object, std::string& text) {
    if (const Reference<css::drawing::XShapes> group(object, UNO_QUERY); group.is()) {
        for (sal_Int32 i = 0; i < group->getCount(); ++i) {
            addTextOf(Reference<css::uno::XInterface>(group->getByIndex(i), UNO_QUERY), text);
        }
        return;
    }
    Reference<css::table::XTable> table;
    anyProperty(propertiesOf(object), "Model") >>= table;
    if (table.is()) {
        addTextOfTable(table, text);
    } else if (const Reference<css::text::XText> own(object, UNO_QUERY);
               own.is() && !own->getString().isEmpty()) {
        text += utf8Of(own->getString()) + "\n";
    }
}

std::string textOfSlides(const Reference<css::frame::XModel>& model) {
    const Reference<css::drawing::XDrawPagesSupplier> supplier(model, UNO_QUERY_THROW);
    const Reference<XIndexAccess> slides(supplier->getDrawPages(), UNO_QUERY_THROW);
    std::string text;
    for (sal_Int32 i = 0; i < slides->getCount(); ++i) {
        text += i > 0 ? "\n" : "";
        addTextOf(Reference<css::uno::XInterface>(slides->getByIndex(i), UNO_QUERY), text);
    }
    return text;
}

std::string textOf(const Reference<css::frame::XModel>& model, DocumentKind kind, const std::string& target) {
    switch (kind) {
    case DocumentKind::Sheet:
        return textOfSheets(model, target);
    case DocumentKind::Slides:
        return textOfSlides(model);
    default:
        return textOfText(model, target);
    }
}

} // namespace

int32_t exportFile(Office& office, const AnyFile& file, DocumentKind kind, ExportFormat format,
                   const std::string& target) {
    return guardedInOffice([&]() -> int32_t {
        LoadedModel loaded;
        const std::string language = kind == DocumentKind::Sheet ? readersLanguage() : "";
        const int32_t result = loadAny(office.d(), file, kind, loaded, language);
        if (result != MODULE_OK) {
            return result;
        }
        if (!isOfKind(loaded.model, kind)) {
            return MODULE_WRONG_KIND;
        }
        if (format == ExportFormat::Pdf) {
            storePdf(loaded.model, target, PDF_FILTERS[static_cast<size_t>(kind)]);
            return MODULE_OK;
        }
        const std::string text = textOf(loaded.model, kind, target);
        std::ofstream out(target, std::ios::binary | std::ios::trunc);
        out << text;
        return out.flush() ? MODULE_OK : MODULE_FAILED;
    });
}

} // namespace lectern::engine
