// SPDX-License-Identifier: Apache-2.0
// What can be done before a document is known: the suite loads the code for a kind
// of documents at its first use, and much of what it sets up then serves the next
// document too. So a document of each format is made, opened, painted and closed.
#include "engine/office/FileUrl.h"
#include "engine/office/OfficeGuard.h"
#include "engine/office/OfficePrivate.h"
#include "engine/office/sheet/SheetDocument.h"
#include "engine/office/slide/SlideDocument.h"
#include "engine/office/word/WordDocument.h"

#include <unistd.h>

#include <array>
#include <cstdlib>
#include <vector>

namespace lectern::engine {
namespace {

struct Format {
    const char* maker; // makes an empty document of the kind
    const char* extension;
};

constexpr std::array FORMATS = {
    Format{"private:factory/swriter", "docx"},  Format{"private:factory/scalc", "xlsx"},
    Format{"private:factory/simpress", "pptx"}, Format{"private:factory/swriter", "doc"},
    Format{"private:factory/scalc", "xls"},     Format{"private:factory/simpress", "ppt"},
};

constexpr int32_t WIDTH = 480;
constexpr int32_t HEIGHT = 800;

void usePixels(WordDocument& document, uint32_t* pixels) {
    int32_t width = 0;
    int32_t rows = 0;
    (void)document.setSurface(pixels, WIDTH, HEIGHT);
    (void)document.layoutSize(width, rows);
}

void usePixels(SheetDocument& document, uint32_t* pixels) {
    (void)document.setSurface(SheetArea::Cells, pixels, WIDTH, HEIGHT);
    (void)document.render(0, 0, 0);
}

void usePixels(SlideDocument& document, uint32_t* pixels) {
    (void)document.setSurface(pixels, WIDTH, HEIGHT);
    (void)document.render(0);
}

// Opens, paints and closes a document. A failure is not reported: an open that
// matters will meet it again.
template<class Document, class... Password>
void use(Office& office, const std::string& path, const std::string& folder, const Password&... password) {
    std::vector<uint32_t> pixels(static_cast<size_t>(WIDTH) * HEIGHT);
    std::unique_ptr<Document> document;
    if (Document::open(office, path, password..., folder, document) == MODULE_OK) {
        usePixels(*document, pixels.data());
    }
}

void useDocument(Office& office, const std::string& path, const std::string& folder) {
    const std::string noPassword;
    switch (path[path.rfind('.') + 1]) {
    case 'd':
        return use<WordDocument>(office, path, folder, noPassword);
    case 'x':
        return use<SheetDocument>(office, path, folder, noPassword);
    default:
        return use<SlideDocument>(office, path, folder);
    }
}

// Takes back a setting of all workbooks that the first one changes when it is painted.
// The widths of columns of the next one, which are read with it, would be others.
void restoreSheetSettings(const Office::Private& office) {
    const auto settings = propertiesOf(office.context->getServiceManager()->createInstanceWithContext(
        "com.sun.star.sheet.GlobalSheetSettings", office.context));
    (void)setProperty(settings, "UsePrinterMetrics", false);
}

} // namespace

bool Office::prepareNext() {
    if (d().prepared == FORMATS.size()) {
        return false;
    }
    const Format& format = FORMATS[d().prepared++];
    const std::string path = d().folder + "/empty." + format.extension;
    (void)guardedInOffice([&] {
        const std::unique_ptr<lok::Document> empty(d().suite->documentLoad(format.maker, "Batch=true"));
        return empty && empty->saveAs(fileUrl(path).c_str(), format.extension, "") ? MODULE_OK
                                                                                   : MODULE_FAILED;
    });
    useDocument(*this, path, d().folder);
    (void)guardedInOffice([&] {
        restoreSheetSettings(d());
        return MODULE_OK;
    });
    unlink(path.c_str());
    return d().prepared < FORMATS.size();
}

} // namespace lectern::engine
