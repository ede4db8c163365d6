// SPDX-License-Identifier: Apache-2.0
// bare_word FILE WIDTH HEIGHT DPI: the baseline of word-processing opens. Loads
// a document into the office suite, gives it one giant page of the width, paints
// the top once, and prints the milliseconds of each step: start, load, reflow,
// paint. No index, no fitting, no second pass: the least a reflow can cost.
#include <LibreOfficeKit/LibreOfficeKit.hxx>
#include <LibreOfficeKit/LibreOfficeKitInit.h>

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/style/XStyle.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

namespace css = com::sun::star;
using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

constexpr sal_Int32 giantPage = 100'000'000; // 1/100 mm
constexpr sal_Int32 margin = 150;            // 1/100 mm
constexpr int pageCorner = 284;              // twips

double milliseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now).count();
}

Reference<css::uno::XComponentContext> componentContext() {
    using Getter = Reference<css::uno::XComponentContext> (*)();
    void* library = dlopen(LECTERN_OFFICE_PROGRAM "/libmergedlo.so", RTLD_NOW | RTLD_NOLOAD);
    return reinterpret_cast<Getter>(dlsym(library, "_ZN10comphelper26getProcessComponentContextEv"))();
}

void set(const Reference<css::beans::XPropertySet>& style, const char* name, const Any& value) {
    style->setPropertyValue(rtl::OUString::createFromAscii(name), value);
}

void reflow(const Reference<css::frame::XModel>& model, sal_Int32 width) {
    const Reference<css::style::XStyleFamiliesSupplier> supplier(model, UNO_QUERY_THROW);
    const Reference<css::container::XNameAccess> styles(supplier->getStyleFamilies()->getByName("PageStyles"),
                                                        UNO_QUERY_THROW);
    model->lockControllers();
    for (const rtl::OUString& name : styles->getElementNames()) {
        const Reference<css::style::XStyle> style(styles->getByName(name), UNO_QUERY_THROW);
        if (!style->isInUse())
            continue;
        const Reference<css::beans::XPropertySet> page(style, UNO_QUERY_THROW);
        for (const char* off : {"HeaderIsOn", "FooterIsOn", "IsLandscape"})
            set(page, off, Any(false));
        set(page, "GridMode", Any(sal_Int16(0)));
        for (const char* side : {"LeftMargin", "RightMargin"})
            set(page, side, Any(margin));
        for (const char* side : {"TopMargin", "BottomMargin"})
            set(page, side, Any(sal_Int32(0)));
        set(page, "Width", Any(width));
        set(page, "Height", Any(giantPage));
    }
    model->unlockControllers();
}

int measure(char** argv, const std::string& profile) {
    const int width = std::atoi(argv[2]);  // NOLINT(cert-err34-c)
    const int height = std::atoi(argv[3]); // NOLINT(cert-err34-c)
    const int dpi = std::atoi(argv[4]);    // NOLINT(cert-err34-c)
    if (width < 1 || height < 1 || dpi < 1)
        return 2;
    // The suite leaves a lock file beside what it opens: a copy goes with the profile.
    const std::string copy = profile + "/document" + std::filesystem::path(argv[1]).extension().string();
    std::filesystem::copy_file(argv[1], copy);
    const double start = milliseconds();
    const std::unique_ptr<lok::Office> office(
        lok::lok_cpp_init(LECTERN_OFFICE_PROGRAM, ("file://" + profile).c_str()));
    if (!office)
        return 1;
    const double started = milliseconds();
    std::unique_ptr<lok::Document> document(office->documentLoad(("file://" + copy).c_str(), "Batch=true"));
    if (!document)
        return 1;
    document->initializeForRendering("{}");
    const auto desktop = css::frame::Desktop::create(componentContext());
    const Reference<css::frame::XModel> model(desktop->getCurrentComponent(), UNO_QUERY_THROW);
    const double loaded = milliseconds();
    reflow(model, static_cast<sal_Int32>(int64_t{width} * 2540 / dpi));
    const double reflowed = milliseconds();
    std::vector<unsigned char> pixels(static_cast<size_t>(width) * static_cast<size_t>(height) * 4);
    document->paintTile(pixels.data(), width, height, pageCorner, pageCorner, width * 1440 / dpi,
                        height * 1440 / dpi);
    const double painted = milliseconds();
    std::printf("start %.1f load %.1f reflow %.1f paint %.1f\n", started - start, loaded - started,
                reflowed - loaded, painted - reflowed);
    std::fflush(stdout);
    // Taking the suite down is no part of the figure, and not reliable.
    std::error_code error;
    std::filesystem::remove_all(profile, error);
    _exit(0);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 5 || argv[1][0] != '/') {
        std::fprintf(stderr, "usage: bare_word /ABSOLUTE/FILE WIDTH HEIGHT DPI\n");
        return 2;
    }
    std::string profile = (std::filesystem::temp_directory_path() / "bare-word-XXXXXX").string();
    if (mkdtemp(profile.data()) == nullptr)
        return 1;
    setenv("TMPDIR", profile.c_str(), 1); // the suite leaves files in it
    int result = 1;
    try {
        result = measure(argv, profile);
    } catch (const css::uno::Exception&) {
        std::fprintf(stderr, "the office suite refused\n");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    std::error_code error;
    std::filesystem::remove_all(profile, error);
    _exit(result);
}
