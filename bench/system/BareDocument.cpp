// SPDX-License-Identifier: Apache-2.0
#include "bench/system/BareDocument.h"

#include "engine/office/Profile.h"

#include <LibreOfficeKit/LibreOfficeKitInit.h>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/style/XStyle.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>
#include <dlfcn.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>

namespace bare {

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace {

constexpr sal_Int32 GIANT_PAGE = 100'000'000; // 1/100 mm
constexpr sal_Int32 MARGIN = 150;             // 1/100 mm
constexpr int PAGE_CORNER = 284;              // twips

Reference<css::uno::XComponentContext> componentContext() {
    using Getter = Reference<css::uno::XComponentContext> (*)();
    void* library = dlopen(LECTERN_OFFICE_PROGRAM "/libmergedlo.so", RTLD_NOW | RTLD_NOLOAD);
    return reinterpret_cast<Getter>(dlsym(library, "_ZN10comphelper26getProcessComponentContextEv"))();
}

void set(const Reference<css::beans::XPropertySet>& style, const char* name, const Any& value) {
    style->setPropertyValue(rtl::OUString::createFromAscii(name), value);
}

} // namespace

double milliseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now).count();
}

std::unique_ptr<Document> Document::read(const std::string& file, const std::string& profile) {
    auto document = std::make_unique<Document>();
    // The suite leaves a lock file next to the file that it opens, so it gets a copy in
    // the profile folder, which is removed at the end.
    const std::string copy = profile + "/document" + std::filesystem::path(file).extension().string();
    std::filesystem::copy_file(file, copy);
    // The engine's profile, so that both run with the same settings.
    if (!lectern::engine::writeProfile(profile)) {
        return nullptr;
    }
    const double start = milliseconds();
    document->mOffice.reset(lok::lok_cpp_init(LECTERN_OFFICE_PROGRAM, ("file://" + profile).c_str()));
    if (!document->mOffice) {
        return nullptr;
    }
    const double started = milliseconds();
    document->mPainter.reset(document->mOffice->documentLoad(("file://" + copy).c_str(), "Batch=true"));
    if (!document->mPainter) {
        return nullptr;
    }
    document->mStarted = started - start;
    document->mLoaded = milliseconds() - started;
    return document;
}

std::unique_ptr<Document> Document::load(const std::string& file, const std::string& profile) {
    auto document = read(file, profile);
    if (!document) {
        return nullptr;
    }
    const double loaded = milliseconds();
    document->mPainter->initializeForRendering("{}");
    const auto desktop = css::frame::Desktop::create(componentContext());
    // The desktop does not know its current document yet, but there is only one.
    document->mModel.set(desktop->getComponents()->createEnumeration()->nextElement(), UNO_QUERY_THROW);
    document->mLoaded += milliseconds() - loaded;
    return document;
}

void Document::reflow(int width, int dpi) {
    const Reference<css::style::XStyleFamiliesSupplier> supplier(mModel, UNO_QUERY_THROW);
    const Reference<css::container::XNameAccess> styles(supplier->getStyleFamilies()->getByName("PageStyles"),
                                                        UNO_QUERY_THROW);
    mModel->lockControllers();
    for (const rtl::OUString& name : styles->getElementNames()) {
        const Reference<css::style::XStyle> style(styles->getByName(name), UNO_QUERY_THROW);
        if (!style->isInUse()) {
            continue;
        }
        const Reference<css::beans::XPropertySet> page(style, UNO_QUERY_THROW);
        for (const char* off : {"HeaderIsOn", "FooterIsOn", "IsLandscape"}) {
            set(page, off, Any(false));
        }
        set(page, "GridMode", Any(sal_Int16(0)));
        for (const char* side : {"LeftMargin", "RightMargin"}) {
            set(page, side, Any(MARGIN));
        }
        for (const char* side : {"TopMargin", "BottomMargin"}) {
            set(page, side, Any(sal_Int32(0)));
        }
        set(page, "Width", Any(static_cast<sal_Int32>(int64_t{width} * 2540 / dpi)));
        set(page, "Height", Any(GIANT_PAGE));
    }
    mModel->unlockControllers();
}

void Document::paint(int top, int width, int height, int dpi) {
    mPixels.resize(static_cast<size_t>(width) * static_cast<size_t>(height) * 4);
    const auto twips = [dpi](int pixels) { return static_cast<int>(int64_t{pixels} * 1440 / dpi); };
    mPainter->paintTile(mPixels.data(), width, height, PAGE_CORNER, PAGE_CORNER + twips(top), twips(width),
                        twips(height));
}

void Document::paintTwips(int width, int height, int twipsWide, int twipsHigh) {
    mPixels.resize(static_cast<size_t>(width) * static_cast<size_t>(height) * 4);
    mPainter->paintTile(mPixels.data(), width, height, 0, 0, twipsWide, twipsHigh);
}

void run(int (*measure)(char** argv, const std::string& profile), char** argv) {
    std::string profile = (std::filesystem::temp_directory_path() / "bare-word-XXXXXX").string();
    if (mkdtemp(profile.data()) == nullptr) {
        _exit(1);
    }
    setenv("TMPDIR", profile.c_str(), 1); // the suite leaves files in it
    int result = 1;
    try {
        result = measure(argv, profile);
    } catch (const css::uno::Exception&) {
        std::fprintf(stderr, "the office suite refused\n");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    std::fflush(stdout);
    std::error_code error;
    std::filesystem::remove_all(profile, error);
    _exit(result);
}

} // namespace bare
