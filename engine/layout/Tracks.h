// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace lectern::engine {

// The columns of a sheet, or its rows, and where the suite draws them.
//
// The suite gives each track a whole number of pixels, its twips scaled and cut
// off, and lays track beside track. So places are sums of cut-off sizes, never
// scaled sums of sizes, and agree with the drawn lines at any distance. Tracks
// of one size stand together as a run, so that a million rows cost nothing.
class Tracks {
public:
    Tracks() = default;
    // sizes: "twips:last ...", each for the tracks after the one before up to
    // `last`. hidden: "state:last last ...", the first run's state (1 is
    // hidden), which every next run turns round.
    Tracks(const std::string& sizes, const std::string& hidden);

    // Pixels at a resolution from now on.
    void setDpi(int32_t dpi);
    // How many belong to the sheet; places behind them are none.
    void setCount(int32_t count) { mCount = count; }
    int32_t count() const { return mCount; }

    // The first pixel of a track, 0 <= track <= count(); hidden ones have no
    // pixels.
    int64_t position(int32_t track) const;
    int64_t size(int32_t track) const { return position(track + 1) - position(track); }
    int64_t total() const { return position(mCount); }
    // The track that a pixel belongs to, a visible one if there is any: the
    // first or the last of them for a pixel outside.
    int32_t trackAt(int64_t pixel) const;
    // Among all tracks that there are, up to how many would fill so many pixels.
    int32_t countUpTo(int64_t pixels) const;

    int32_t twips(int32_t track) const;
    // The pixel where what lies at a place is painted that is given in twips and
    // without any rounding, and how far into that pixel.
    double paintedAt(double place, int32_t dpi) const;
    bool isHidden(int32_t track) const;
    int32_t visibleIn(int32_t first, int32_t last) const;
    // A range takes in the hidden tracks right before its first one, true
    // when there are any, or those right behind its last.
    bool widenOverHiddenBefore(int32_t& first) const;
    void widenOverHiddenBehind(int32_t& last) const;

    // The least twips that give so many pixels.
    static int32_t twipsFor(int64_t pixels, int32_t dpi);

private:
    struct Run {
        int32_t first;
        int32_t last;
        int32_t twips;
        bool hidden;
        int64_t twipsBefore; // of all visible tracks before
        int64_t pixels = 0;  // of each
        int64_t start = 0;   // of the first
    };
    const Run& runOf(int32_t track) const;
    // The last run that begins before a place in twips, the first if none does:
    // a track's end is not yet the next one's beginning.
    const Run& runBefore(double place) const;
    int32_t trackAmongAll(int64_t pixel) const;

    std::vector<Run> mRuns; // without gaps, by track
    int32_t mCount = 0;
};

} // namespace lectern::engine
