// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/Tracks.h"

#include "engine/layout/Twips.h"

#include <algorithm>
#include <sstream>

namespace lectern::engine {

namespace {

// Tracks behind those of the range before, up to `last`.
struct TrackRange {
    int32_t last;
    int32_t value;
};

// Parses "value:last value:last ...".
std::vector<TrackRange> readSizes(const std::string& text) {
    std::vector<TrackRange> ranges;
    std::istringstream in(text);
    char colon = 0;
    for (TrackRange next{}; in >> next.value >> colon >> next.last;) {
        ranges.push_back(next);
    }
    return ranges;
}

// Parses "state:last last ...".
std::vector<TrackRange> readStates(const std::string& text) {
    std::vector<TrackRange> ranges;
    std::istringstream in(text);
    TrackRange next{};
    char colon = 0;
    for (in >> next.value >> colon; in >> next.last; next.value = 1 - next.value) {
        ranges.push_back(next);
    }
    return ranges;
}

// The order of the operations matters: the result must equal the suite's to the
// last bit.
double pixelsPerTwip(int32_t dpi) {
    return 96.0 / static_cast<double>(TWIPS_PER_INCH) * (dpi / 96.0);
}

int64_t pixelsOf(int32_t twips, double perTwip) {
    return twips > 0 ? std::max<int64_t>(static_cast<int64_t>(twips * perTwip), 1) : 0;
}

} // namespace

Tracks::Tracks(const std::string& sizes, const std::string& hidden) {
    const std::vector<TrackRange> states = readStates(hidden);
    auto state = states.begin();
    int32_t first = 0;
    int64_t twips = 0;
    for (const TrackRange& size : readSizes(sizes)) {
        while (first <= size.last) {
            while (state != states.end() && state->last < first) {
                ++state;
            }
            const int32_t last = state == states.end() ? size.last : std::min(size.last, state->last);
            const bool isHidden = state != states.end() && state->value != 0;
            mRuns.push_back({first, last, size.value, isHidden, twips});
            twips += isHidden ? 0 : int64_t{size.value} * (last - first + 1);
            first = last + 1;
        }
    }
    if (mRuns.empty()) {
        mRuns.push_back({0, 0, 0, true, 0});
    }
}

void Tracks::setDpi(int32_t dpi) {
    const double perTwip = pixelsPerTwip(dpi);
    int64_t start = 0;
    for (Run& run : mRuns) {
        run.pixels = run.hidden ? 0 : pixelsOf(run.twips, perTwip);
        run.start = start;
        start += run.pixels * (run.last - run.first + 1);
    }
}

const Tracks::Run& Tracks::runOf(int32_t track) const {
    const auto next = std::upper_bound(mRuns.begin(), mRuns.end(), track,
                                       [](int32_t wanted, const Run& run) { return wanted < run.first; });
    return next == mRuns.begin() ? *next : *std::prev(next);
}

int64_t Tracks::position(int32_t track) const {
    const Run& run = runOf(track);
    return run.start + run.pixels * (std::min(track, run.last + 1) - run.first);
}

int32_t Tracks::trackAmongAll(int64_t pixel) const {
    // Of several runs that start at the same pixel, only the last has a size.
    auto run = std::upper_bound(mRuns.begin(), mRuns.end(), pixel,
                                [](int64_t wanted, const Run& next) { return wanted < next.start; });
    run = run == mRuns.begin() ? run : std::prev(run);
    const int64_t into = run->pixels == 0 ? 0 : (pixel - run->start) / run->pixels;
    return static_cast<int32_t>(std::clamp<int64_t>(run->first + into, run->first, run->last));
}

int32_t Tracks::trackAt(int64_t pixel) const {
    return total() == 0 ? 0 : trackAmongAll(std::clamp<int64_t>(pixel, 0, total() - 1));
}

int32_t Tracks::countUpTo(int64_t pixels) const {
    return pixels < 1 ? 0 : trackAmongAll(pixels - 1) + 1;
}

int32_t Tracks::twips(int32_t track) const {
    return runOf(track).twips;
}

const Tracks::Run& Tracks::runBefore(double place) const {
    const auto next = std::lower_bound(mRuns.begin(), mRuns.end(), place, [](const Run& run, double wanted) {
        return static_cast<double>(run.twipsBefore) < wanted;
    });
    return next == mRuns.begin() ? *next : *std::prev(next);
}

double Tracks::paintedAt(double place, int32_t dpi) const {
    const Run& run = runBefore(place);
    const double into = place - static_cast<double>(run.twipsBefore);
    const double scale = run.hidden || run.twips == 0 || into <= 0
                             ? pixelsPerTwip(dpi)
                             : static_cast<double>(run.pixels) / run.twips;
    return static_cast<double>(run.start) + into * scale;
}

double Tracks::displacementAt(int64_t pixel, int32_t dpi) const {
    constexpr double ASSUMED_DPI = 96;
    return static_cast<double>(pixel - position(trackAt(pixel))) * (1 - ASSUMED_DPI / dpi);
}

bool Tracks::isHidden(int32_t track) const {
    return runOf(track).hidden;
}

int32_t Tracks::visibleIn(int32_t first, int32_t last) const {
    int32_t visible = 0;
    for (const Run& run : mRuns) {
        if (!run.hidden) {
            visible += std::max(0, std::min(run.last, last) - std::max(run.first, first) + 1);
        }
    }
    return visible;
}

bool Tracks::widenOverHiddenBefore(int32_t& first) const {
    const int32_t before = first;
    while (first > 0 && isHidden(first - 1)) {
        first = runOf(first - 1).first;
    }
    return first < before;
}

void Tracks::widenOverHiddenBehind(int32_t& last) const {
    while (last + 1 < mCount && isHidden(last + 1)) {
        last = std::min(runOf(last + 1).last, mCount - 1);
    }
}

int32_t Tracks::twipsFor(int64_t pixels, int32_t dpi) {
    const double perTwip = pixelsPerTwip(dpi);
    auto twips = static_cast<int32_t>(pixels * TWIPS_PER_INCH / dpi);
    while (pixelsOf(twips, perTwip) < pixels) {
        ++twips;
    }
    return twips;
}

} // namespace lectern::engine
