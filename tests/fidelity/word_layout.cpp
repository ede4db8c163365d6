// SPDX-License-Identifier: Apache-2.0
// word_layout FILE WIDTH DPI OUT.pdf: lays a text out as the engine does for a
// view of WIDTH pixels, and exports the laid-out text as PDF. The PDF tells where
// every word stands. Its size is that of the layout, its unit the point.
#include "engine/office/OfficePrivate.h"
#include "engine/office/word/WordDocument.h"
#include "tests/system/office/OfficeProgram.h"

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using lectern::engine::Office;
using lectern::engine::WordDocument;

constexpr int32_t SURFACE_ROWS = 64; // the layout does not depend on them

// The suite has one document open, and perhaps helpers that are no texts.
Reference<css::frame::XStorable> openedText(Office& office) {
    const auto components =
        css::frame::Desktop::create(office.d().context)->getComponents()->createEnumeration();
    while (components->hasMoreElements()) {
        const Reference<css::text::XTextDocument> text(components->nextElement(), UNO_QUERY);
        if (text.is()) {
            return {text, UNO_QUERY};
        }
    }
    return {};
}

bool exportPdf(Office& office, const std::filesystem::path& path) {
    const Reference<css::frame::XStorable> text = openedText(office);
    if (!text.is()) {
        return false;
    }
    css::beans::PropertyValue filter;
    filter.Name = "FilterName";
    filter.Value <<= rtl::OUString("writer_pdf_Export");
    try {
        text->storeToURL(rtl::OUString::fromUtf8(("file://" + path.string()).c_str()),
                         css::uno::Sequence(&filter, 1));
    } catch (const css::uno::Exception& failure) {
        std::fprintf(stderr, "word_layout: no PDF: %s\n",
                     rtl::OUStringToOString(failure.Message, RTL_TEXTENCODING_UTF8).getStr());
        return false;
    }
    return true;
}

bool layOut(Office& office, const std::string& file, int32_t width, int32_t dpi,
            const std::filesystem::path& pdf, const std::string& folder) {
    std::unique_ptr<WordDocument> document;
    const int32_t result = WordDocument::open(office, file, "", folder, document);
    if (result != 0) {
        std::fprintf(stderr, "word_layout: not opened, code %d\n", result);
        return false;
    }
    std::vector<uint32_t> pixels(static_cast<size_t>(width) * SURFACE_ROWS);
    int32_t columns = 0;
    int32_t rows = 0;
    const bool laidOut = document->setSurface(pixels.data(), width, SURFACE_ROWS) == 0 &&
                         document->setDpi(dpi) == 0 && document->layoutSize(columns, rows) == 0;
    return laidOut && exportPdf(office, pdf);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 5) {
        std::fprintf(stderr, "usage: word_layout FILE WIDTH DPI OUT.pdf\n");
        return 2;
    }
    const std::filesystem::path pdf = std::filesystem::absolute(argv[4]);
    // Beside the PDF, where a caller that stops this program finds it.
    const std::string place = pdf.string() + "-XXXXXX";
    const int32_t width = std::atoi(argv[2]); // NOLINT(cert-err34-c)
    const int32_t dpi = std::atoi(argv[3]);   // NOLINT(cert-err34-c)
    const std::string file = std::filesystem::absolute(argv[1]);
    lectern::engine::test::runWithOffice(place, [&](Office& office, const std::string& folder) {
        return layOut(office, file, width, dpi, pdf, folder) ? 0 : 1;
    });
}
