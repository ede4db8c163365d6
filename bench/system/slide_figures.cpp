// SPDX-License-Identifier: Apache-2.0
// slide_figures /ABSOLUTE/FILE WIDTH HEIGHT [jumps]: compares painting slides through
// the module with the suite's own painting. The slides are painted in order or, with
// "jumps", in a random order that is always the same. Prints one line with the median
// milliseconds of painting a slide in the suite alone, through the module, and again
// through the module, which has kept the slide.
#include "modules/SSTGFunc.h"

#include <LibreOfficeKit/LibreOfficeKit.hxx>
#include <LibreOfficeKit/LibreOfficeKitInit.h>
#include <dlfcn.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace {

struct Job {
    std::string path;
    int width;
    int height;
    bool jumps;
    std::string folder; // for temporary files of this run
};

double milliseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now).count();
}

double median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times.empty() ? 0 : times[times.size() / 2];
}

template<class Paint>
double timeOf(Paint paint) {
    const double start = milliseconds();
    paint();
    return milliseconds() - start;
}

std::vector<std::uint16_t> units(const std::string& ascii) {
    std::vector<std::uint16_t> text(ascii.begin(), ascii.end());
    text.push_back(0);
    return text;
}

// Paints in the suite alone, in this process.
class BareSuite {
public:
    explicit BareSuite(const Job& job)
        : mJob(job), mPixels(static_cast<size_t>(job.width) * static_cast<size_t>(job.height) * 4) {
        // The suite leaves a lock file next to the file that it opens, so it gets a copy in
        // the run's folder, which is removed at the end.
        const std::string copy =
            job.folder + "/document" + std::filesystem::path(job.path).extension().string();
        std::filesystem::copy_file(job.path, copy);
        auto* const suite =
            lok::lok_cpp_init(LECTERN_OFFICE_PROGRAM, ("file://" + job.folder + "/profile").c_str());
        mDocument =
            suite == nullptr ? nullptr : suite->documentLoad(("file://" + copy).c_str(), "Batch=true");
        if (mDocument == nullptr) {
            return;
        }
        mDocument->initializeForRendering("{}");
        mDocument->getDocumentSize(&mAcross, &mDown);
    }

    bool isOpen() const { return mDocument != nullptr; }
    void paint(int slide) {
        mDocument->setPart(slide);
        mDocument->paintTile(mPixels.data(), mJob.width, mJob.height, 0, 0, static_cast<int>(mAcross),
                             static_cast<int>(mDown));
    }

private:
    const Job& mJob;
    lok::Document* mDocument = nullptr; // never destroyed
    long mAcross = 0;
    long mDown = 0;
    std::vector<unsigned char> mPixels;
};

// Paints through the module.
class Module {
public:
    explicit Module(const Job& job)
        : mJob(job), mPixels(static_cast<size_t>(job.width) * static_cast<size_t>(job.height)) {
        void* const module = dlopen("SlideshowToGoModule.so", RTLD_NOW);
        if (module == nullptr) {
            std::fprintf(stderr, "%s\n", dlerror());
            return;
        }
#define LECTERN_BIND(name)                                                                                   \
    mFunctions.name = reinterpret_cast<decltype(mFunctions.name)>(dlsym(module, #name));
        SSTG_FUNCTIONS(LECTERN_BIND)
#undef LECTERN_BIND
        mFunctions.sstg_open_file(units(job.path).data(), units("/usr/share/fonts").data(),
                                  units(job.folder).data(), &mDocument);
    }
    ~Module() {
        if (mDocument != nullptr) {
            mFunctions.sstg_close_file(&mDocument);
        }
    }
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    bool isOpen() const {
        return mDocument != nullptr;
    }
    std::int32_t count() {
        std::int32_t slides = 0;
        mFunctions.sstg_get_slide_count(mDocument, &slides);
        return slides;
    }
    void paint(std::int32_t slide) {
        mFunctions.sstg_render_slide(mDocument, slide, 0, mPixels.data(), mJob.width, mJob.height);
    }

private:
    const Job& mJob;
    SSTGFunc mFunctions;
    void* mDocument = nullptr;
    std::vector<std::uint32_t> mPixels;
};

// The three ways take turns for each slide, so that other work on the machine slows all
// of them.
int measure(const Job& job) {
    // The module starts processes, so it is opened before the suite runs in this process.
    Module module(job);
    setenv("TMPDIR", job.folder.c_str(), 1); // the suite leaves files in it
    BareSuite suite(job);
    if (!module.isOpen() || !suite.isOpen()) {
        return 1;
    }
    std::vector<std::int32_t> slides(static_cast<size_t>(module.count()));
    std::iota(slides.begin(), slides.end(), 0);
    if (job.jumps) {
        std::shuffle(slides.begin(), slides.end(),
                     std::mt19937(1)); // NOLINT(cert-msc51-cpp): always the same order
    }
    std::vector<double> bare;
    std::vector<double> painted;
    std::vector<double> kept;
    for (const std::int32_t slide : slides) {
        bare.push_back(timeOf([&] { suite.paint(slide); }));
        painted.push_back(timeOf([&] { module.paint(slide); }));
        kept.push_back(timeOf([&] { module.paint(slide); }));
    }
    std::printf("suite %.3f module %.3f kept %.3f\n", median(bare), median(painted), median(kept));
    std::fflush(stdout);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const bool jumps = argc == 5 && std::string(argv[4]) == "jumps";
    if ((argc != 4 && !jumps) || argv[1][0] != '/') {
        std::fprintf(stderr, "usage: slide_figures /ABSOLUTE/FILE WIDTH HEIGHT [jumps]\n");
        return 2;
    }
    std::string folder = (std::filesystem::temp_directory_path() / "slide-figures-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) {
        return 1;
    }
    const Job job{argv[1], std::atoi(argv[2]), std::atoi(argv[3]), jumps, folder}; // NOLINT(cert-err34-c)
    const int result = measure(job);
    std::error_code error;
    std::filesystem::remove_all(folder, error);
    // The suite crashes in an ordinary exit.
    _exit(result);
}
