// SPDX-License-Identifier: Apache-2.0
// The raster operations done by pixman, in the rows and units of raster_bench: multiples
// of memcpy of as many bytes as the operation writes, measured in turns.
//
// pixman_bench [rounds]
#include <pixman.h>
#include <time.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <vector>

namespace {

constexpr int WIDTH = 480;
constexpr int HEIGHT = 800;
constexpr double SAMPLE_MICROSECONDS = 200;

// The processor time of this thread, which excludes the work of other processes.
double nowMicroseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

double sample(const std::function<void()>& work, int repeats) {
    const double start = nowMicroseconds();
    for (int i = 0; i < repeats; i++) {
        work();
    }
    return (nowMicroseconds() - start) / repeats;
}

double median(std::vector<double>& values) {
    const auto middle = values.begin() + static_cast<ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

class Image {
public:
    Image(int width, int height)
        : mPixels(static_cast<size_t>(width) * static_cast<size_t>(height), 0xFFC08040),
          mImage(pixman_image_create_bits(PIXMAN_a8r8g8b8, width, height, mPixels.data(), width * BYTES)) {}
    ~Image() { pixman_image_unref(mImage); }
    Image(const Image&) = delete;
    Image& operator=(const Image&) = delete;

    pixman_image_t* get() const { return mImage; }
    uint32_t* pixels() { return mPixels.data(); }
    // Where a pixel of the target comes from: (xx x + xy y + dx, yx x + yy y + dy).
    void transform(double xx, double xy, double dx, double yx, double yy, double dy) {
        const pixman_transform_t matrix = {
            {{pixman_double_to_fixed(xx), pixman_double_to_fixed(xy), pixman_double_to_fixed(dx)},
             {pixman_double_to_fixed(yx), pixman_double_to_fixed(yy), pixman_double_to_fixed(dy)},
             {0, 0, pixman_fixed_1}}};
        pixman_image_set_transform(mImage, &matrix);
        pixman_image_set_filter(mImage, PIXMAN_FILTER_NEAREST, nullptr, 0);
    }

private:
    static constexpr int BYTES = 4;
    std::vector<uint32_t> mPixels;
    pixman_image_t* mImage;
};

class Bench {
public:
    explicit Bench(int rounds) : mRounds(rounds), mTarget(WIDTH, HEIGHT) {}

    void run() {
        copy("copy, whole", WIDTH, 0, 0);
        copy("copy, scrolled", 2 * WIDTH, WIDTH / 3, HEIGHT / 8);
        turn("turn to the left", HEIGHT, WIDTH, {0, -1, HEIGHT, 1, 0, 0});
        turn("turn to the right", HEIGHT, WIDTH, {0, 1, 0, -1, 0, WIDTH});
        turn("half turn", WIDTH, HEIGHT, {-1, 0, WIDTH, 0, -1, HEIGHT});
        const pixman_color_t red = {0x4040, 0, 0, 0x4040};
        const pixman_box32_t all = {0, 0, WIDTH, HEIGHT};
        report("translucent fill", WIDTH, HEIGHT,
               [&] { pixman_image_fill_boxes(PIXMAN_OP_OVER, mTarget.get(), &red, 1, &all); });
        report("erase", WIDTH, HEIGHT,
               [&] { pixman_fill(mTarget.pixels(), WIDTH, 32, 0, 0, WIDTH, HEIGHT, 0xFF000000); });
        scale("scale x2", 0.5, 1);
        scale("scale x1.25", 0.8, 1);
        scale("scale x1", 1, 1);
        scale("scale x0.7", 1, 0.7);
        scale("scale x0.4", 1, 0.4);
    }

private:
    void report(const char* name, int width, int height, const std::function<void()>& work) {
        const size_t bytes = static_cast<size_t>(width) * static_cast<size_t>(height) * sizeof(uint32_t);
        std::vector<unsigned char> from(bytes, 0x80), to(bytes, 0x80);
        const auto plain = [&] { std::memcpy(to.data(), from.data(), bytes); };
        work();
        const int repeats =
            std::max(1, static_cast<int>(SAMPLE_MICROSECONDS / std::max(0.1, sample(work, 1))));
        std::vector<double> times, copies;
        for (int round = 0; round < mRounds; round++) {
            times.push_back(sample(work, repeats));
            copies.push_back(sample(plain, repeats));
        }
        std::printf("%-26s %dx%d %14.2f\n", name, WIDTH, HEIGHT, median(times) / median(copies));
    }
    void composite(const Image& source, int x, int y, int width, int height) {
        pixman_image_composite32(PIXMAN_OP_SRC, source.get(), nullptr, mTarget.get(), x, y, 0, 0, 0, 0, width,
                                 height);
    }
    void copy(const char* name, int sourceWidth, int x, int y) {
        const Image source(sourceWidth, HEIGHT);
        report(name, WIDTH, HEIGHT, [&] { composite(source, x, y, WIDTH, HEIGHT); });
    }
    void turn(const char* name, int sourceWidth, int sourceHeight, const double (&matrix)[6]) {
        Image source(sourceWidth, sourceHeight);
        source.transform(matrix[0], matrix[1], matrix[2], matrix[3], matrix[4], matrix[5]);
        report(name, WIDTH, HEIGHT, [&] { composite(source, 0, 0, WIDTH, HEIGHT); });
    }
    // From a source of `from` times the frame's sides to a target of `to` times these.
    void scale(const char* name, double from, double to) {
        const auto side = [](double factor, int whole) { return static_cast<int>(factor * whole); };
        Image source(side(from, WIDTH), side(from, HEIGHT));
        source.transform(from / to, 0, 0, 0, from / to, 0);
        const int width = side(to, WIDTH);
        const int height = side(to, HEIGHT);
        report(name, width, height, [&] { composite(source, 0, 0, width, height); });
    }

    int mRounds;
    Image mTarget;
};

} // namespace

int main(int argc, char** argv) {
    std::printf("%-26s %-10s %12s\n", "operation", "size", "pixman/memcpy");
    Bench(argc > 1 ? std::max(1, std::atoi(argv[1])) : 41).run();
    return 0;
}
