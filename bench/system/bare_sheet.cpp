// SPDX-License-Identifier: Apache-2.0
// bare_sheet FILE WORD: the baseline of workbooks. Loads the file into the office suite
// and prints the suite's own milliseconds, the least of some runs, for: a paint of
// 1500 x 1500 pixels, two copies of as many pixels, finding WORD in the first sheet,
// and sorting that sheet by one of its columns.
#include <LibreOfficeKit/LibreOfficeKit.hxx>
#include <LibreOfficeKit/LibreOfficeKitInit.h>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/sheet/XUsedAreaCursor.hpp>
#include <com/sun/star/table/TableSortField.hpp>
#include <com/sun/star/util/XSearchable.hpp>
#include <com/sun/star/util/XSortable.hpp>
#include <dlfcn.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace {

namespace css = com::sun::star;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;
using rtl::OUString;

constexpr int SIDE = 1500;
constexpr int TWIPS = 15000; // of a side at 144 dpi

double milliseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now).count();
}

template<class Work>
double best(int times, Work work) {
    std::vector<double> taken;
    for (int i = 0; i < times; ++i) {
        const double start = milliseconds();
        work(i);
        taken.push_back(milliseconds() - start);
    }
    return *std::min_element(taken.begin(), taken.end());
}

Reference<css::sheet::XSpreadsheet> firstSheet() {
    using Getter = Reference<css::uno::XComponentContext> (*)();
    void* library = dlopen(LECTERN_OFFICE_PROGRAM "/libmergedlo.so", RTLD_NOW | RTLD_NOLOAD);
    const auto context =
        reinterpret_cast<Getter>(dlsym(library, "_ZN10comphelper26getProcessComponentContextEv"))();
    const auto components = css::frame::Desktop::create(context)->getComponents()->createEnumeration();
    const Reference<css::sheet::XSpreadsheetDocument> document(components->nextElement(), UNO_QUERY_THROW);
    const Reference<css::container::XIndexAccess> sheets(document->getSheets(), UNO_QUERY_THROW);
    return {sheets->getByIndex(0), UNO_QUERY_THROW};
}

void findAll(const Reference<css::sheet::XSpreadsheet>& sheet, const char* word) {
    const Reference<css::util::XSearchable> searchable(sheet, UNO_QUERY_THROW);
    const auto descriptor = searchable->createSearchDescriptor();
    descriptor->setSearchString(OUString::createFromAscii(word));
    descriptor->setPropertyValue("SearchType", css::uno::Any(sal_Int16(1)));
    descriptor->setPropertyValue("SearchFormatted", css::uno::Any(true));
    searchable->findAll(descriptor);
}

void sort(const Reference<css::sheet::XSpreadsheet>& sheet, int column) {
    const auto cursor = sheet->createCursor();
    const Reference<css::sheet::XUsedAreaCursor> used(cursor, UNO_QUERY_THROW);
    used->gotoStartOfUsedArea(false);
    used->gotoEndOfUsedArea(true);
    css::table::TableSortField field;
    field.Field = column;
    field.IsAscending = true;
    css::uno::Sequence<css::beans::PropertyValue> options(4);
    options[0].Name = "SortFields";
    options[0].Value <<= css::uno::Sequence<css::table::TableSortField>(&field, 1);
    options[1].Name = "ContainsHeader";
    options[1].Value <<= true;
    options[2].Name = "IsSortColumns";
    options[2].Value <<= false;
    options[3].Name = "BindFormatsToContent";
    options[3].Value <<= true;
    Reference<css::util::XSortable>(cursor, UNO_QUERY_THROW)->sort(options);
}

void measure(lok::Office& office, const char* path, const char* word) {
    const std::string url = std::string("file://") + path;
    const std::unique_ptr<lok::Document> document(office.documentLoad(url.c_str(), "Batch=true"));
    document->initializeForRendering("{}");
    std::vector<unsigned char> pixels(size_t{SIDE} * SIDE * 4);
    std::vector<unsigned char> copy(pixels.size());
    const double paint = best(
        30, [&](int i) { document->paintTile(pixels.data(), SIDE, SIDE, 0, i % 10 * 3000, TWIPS, TWIPS); });
    const double copies = best(30, [&](int) {
        std::memcpy(copy.data(), pixels.data(), pixels.size());
        std::memcpy(pixels.data(), copy.data(), pixels.size());
    });
    const auto sheet = firstSheet();
    const double find = best(5, [&](int) { findAll(sheet, word); });
    const double sorting = best(5, [&](int i) { sort(sheet, (i % 2) * 2); });
    std::printf("%.3f %.3f %.3f %.3f\n", paint, copies, find, sorting);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: bare_sheet FILE WORD\n");
        return 2;
    }
    char folder[] = "/tmp/bare-sheet-XXXXXX";
    int status = mkdtemp(folder) == nullptr ? 1 : 0;
    setenv("TMPDIR", folder, 1);
    try {
        const std::string profile = std::string("file://") + folder + "/profile";
        lok::Office* office = lok::lok_cpp_init(LECTERN_OFFICE_PROGRAM, profile.c_str());
        measure(*office, argv[1], argv[2]);
    } catch (const css::uno::Exception&) {
        status = 1;
    } catch (const std::exception&) {
        status = 1;
    }
    std::fflush(nullptr);
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
    // The suite crashes in an ordinary exit.
    _exit(status);
}
