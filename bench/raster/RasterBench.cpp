// SPDX-License-Identifier: Apache-2.0
// Compares the raster operations with plain loops and with memcpy of as many bytes as
// the operation writes. The three run in turns and their medians are compared, so the
// ratios are stable on a machine whose speed varies.
//
// raster_bench [rounds]
#include "PlainLoops.h"
#include "raster/CpPixmap.h"

#include <time.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

namespace {

// The processor time of this thread, which excludes the work of other processes.
double nowMicroseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

// Pixels that start at a page boundary, like those of a shared segment.
class Frame {
public:
    explicit Frame(size_t pixels)
        : mPixels(static_cast<uint32_t*>(
              std::aligned_alloc(PAGE, (pixels * sizeof(uint32_t) / PAGE + 1) * PAGE))) {
        if (mPixels == nullptr) {
            std::abort();
        }
        FillPixels(mPixels, pixels, 0xFF808080);
    }
    ~Frame() { std::free(mPixels); }
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;
    uint32_t* data() const { return mPixels; }

private:
    static constexpr size_t PAGE = 4096;
    uint32_t* mPixels;
};

constexpr double SAMPLE_MICROSECONDS = 200;

struct Variant {
    std::function<void()> run;
    int repeats = 1;
    std::vector<double> samples;

    explicit Variant(std::function<void()> work) : run(std::move(work)) {}

    double sample() const {
        const double start = nowMicroseconds();
        for (int i = 0; i < repeats; i++) {
            run();
        }
        return (nowMicroseconds() - start) / repeats;
    }
    void calibrate() {
        run();
        repeats = std::max(1, static_cast<int>(SAMPLE_MICROSECONDS / std::max(0.1, sample())));
    }
    double median() {
        const auto middle = samples.begin() + static_cast<ptrdiff_t>(samples.size() / 2);
        std::nth_element(samples.begin(), middle, samples.end());
        return *middle;
    }
};

// A document with all its memory pages allocated. Pages that were never written would
// all be read from the kernel's single zero page.
class Document : public CpPixmap {
public:
    Document(int width, int height) : CpPixmap(width, height) {
        FillPixels(Pixels(), static_cast<size_t>(Area()), 0xFFC08040);
    }
};

// Measures one operation that writes `pixels` pixels and prints its line.
void measure(const char* name, const std::string& size, size_t pixels, int rounds,
             std::function<void()> plain, std::function<void()> ours) {
    const Frame from(pixels);
    const Frame to(pixels);
    Variant variants[] = {Variant(std::move(plain)), Variant(std::move(ours)),
                          Variant([&] { std::memcpy(to.data(), from.data(), pixels * sizeof(uint32_t)); })};
    for (Variant& variant : variants) {
        variant.calibrate();
    }
    for (int round = 0; round < rounds; round++) {
        for (Variant& variant : variants) {
            variant.samples.push_back(variant.sample());
        }
    }
    const double plainTime = variants[0].median();
    const double ourTime = variants[1].median();
    std::printf("%-26s %-10s %10.2f %12.2f %10.1f\n", name, size.c_str(), plainTime / ourTime,
                ourTime / variants[2].median(), ourTime);
}

class FrameBench {
public:
    FrameBench(int width, int height, int rounds)
        : mWidth(width), mHeight(height), mRounds(rounds),
          mPixels(static_cast<size_t>(width) * static_cast<size_t>(height)),
          mSize(std::to_string(width) + "x" + std::to_string(height)),
          // Includes the rows and pixels that the rotated copies write past the image.
          mFrame(mPixels + 2 * static_cast<size_t>(std::max(width, height)) + 1), mSecond(width, height) {}

    void run() {
        copies();
        turns();
        fills();
        scales();
    }

private:
    void report(const char* name, std::function<void()> plain, std::function<void()> ours) {
        measure(name, mSize, mPixels, mRounds, std::move(plain), std::move(ours));
    }
    static plain::Image image(const CpPixmap& pixmap) {
        return {pixmap.Pixels(), pixmap.Width(), pixmap.Height()};
    }

    void copies() {
        const Document document(mWidth, mHeight);
        const CpRect all(0, 0, mWidth, mHeight);
        report(
            "copy, whole", [&] { plain::copyBits(image(document), all, mFrame.data()); },
            [&] { document.CopyBits(all, mFrame.data()); });
        const Document wide(2 * mWidth, mHeight);
        const CpRect scrolled(mWidth / 3, mHeight / 8, mWidth / 3 + mWidth, mHeight / 8 + mHeight);
        report(
            "copy, scrolled", [&] { plain::copyBits(image(wide), scrolled, mFrame.data()); },
            [&] { wide.CopyBits(scrolled, mFrame.data()); });
        paint("paint, covered", document, all);
        paint("paint, in a wider one", wide, scrolled);
        paint("paint, half outside", document, CpRect(mWidth / 2, 0, mWidth / 2 + mWidth, mHeight));
    }

    // The copies that a view makes for a paint. They fill two buffers; the memcpy that
    // they are compared with fills one.
    void paint(const char* name, const CpPixmap& document, const CpRect& s) {
        uint32_t* const frame = mFrame.data();
        uint32_t* const second = mSecond.Pixels();
        const auto plain = [&] {
            for (size_t i = 0; i < mPixels; i++) {
                frame[i] = 0xFF000000;
            }
            plain::copyBits(image(document), s, frame);
            for (size_t i = 0; i < mPixels; i++) {
                second[i] = frame[i];
            }
        };
        const auto ours = [&] { document.CopyFrame(s, 0xFF000000, frame, second); };
        report(name, plain, ours);
    }

    void turns() {
        const Document turned(mHeight, mWidth);
        const CpRect all(0, 0, mHeight, mWidth);
        report(
            "turn to the left", [&] { plain::turnLeft(image(turned), all, mFrame.data()); },
            [&] { turned.CopyBitsRotatedLeft(all, mFrame.data()); });
        report(
            "turn to the right", [&] { plain::turnRight(image(turned), all, mFrame.data()); },
            [&] { turned.CopyBitsRotatedRight(all, mFrame.data()); });
        const Document upright(mWidth, mHeight);
        const CpRect whole(0, 0, mWidth, mHeight);
        report(
            "half turn", [&] { plain::turnAround(image(upright), whole, mFrame.data()); },
            [&] { upright.CopyBitsRotated180(whole, mFrame.data()); });
    }

    void fills() {
        CpPixmap frame(mFrame.data(), mWidth, mHeight);
        const plain::Canvas canvas{mFrame.data(), mWidth, mHeight, static_cast<long long>(mPixels)};
        CpRect all(0, 0, mWidth, mHeight);
        report(
            "translucent fill", [&] { plain::alphaRect(canvas, all, 0x40FF0000); },
            [&] { frame.DrawAlphaRectOnPix(all, 0x40FF0000); });
        report(
            "erase",
            [&] {
                for (size_t i = 0; i < mPixels; i++) {
                    frame.Pixels()[i] = 0xFF000000;
                }
            },
            [&] { FillPixels(mFrame.data(), mPixels, 0xFF000000); });
    }

    void scales() {
        scale("scale x2", mWidth / 2, mHeight / 2, mWidth, mHeight);
        scale("scale x1.25", mWidth * 4 / 5, mHeight * 4 / 5, mWidth, mHeight);
        scale("scale x1", mWidth, mHeight, mWidth, mHeight);
        scale("scale x0.7", mWidth, mHeight, mWidth * 7 / 10, mHeight * 7 / 10);
        scale("scale x0.4", mWidth, mHeight, mWidth * 2 / 5, mHeight * 2 / 5);
    }

    void scale(const char* name, int sourceWidth, int sourceHeight, int width, int height) {
        const Document source(sourceWidth, sourceHeight);
        const CpRect target(0, 0, width, height);
        measure(
            name, mSize, static_cast<size_t>(target.Area()), mRounds,
            [&] { plain::scaleToFit(image(source), source, mFrame.data(), target, mWidth, mHeight); },
            [&] { source.ScaleCopyToFit(source, mFrame.data(), target, mWidth, mHeight); });
    }

    int mWidth;
    int mHeight;
    int mRounds;
    size_t mPixels;
    std::string mSize;
    Frame mFrame;
    Document mSecond;
};

} // namespace

int main(int argc, char** argv) {
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 41;
    std::printf("%-26s %-10s %10s %12s %10s\n", "operation", "size", "plain/ours", "ours/memcpy", "ours us");
    FrameBench(320, 480, rounds).run();
    FrameBench(480, 800, rounds).run();
    FrameBench(1080, 1920, rounds).run();
    return 0;
}
