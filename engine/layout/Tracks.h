// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace lectern::engine {

// The columns or the rows of a sheet and the pixels at which the suite draws
// them.
//
// The suite scales each track's size to pixels, cuts it off to a whole number,
// and places track after track. So positions are sums of cut-off sizes, not
// scaled sums, and match the drawn lines at any distance. Tracks of equal size
// are stored as one run, so that a million rows take little memory.
class Tracks {
public:
    Tracks() = default;
    // Parses the suite's description. sizes: "twips:last ...", each for the
    // tracks up to `last` that follow the previous entry. hidden: "state:last
    // last ...", the state of the first run (1 is hidden); the state alternates
    // from run to run.
    Tracks(const std::string& sizes, const std::string& hidden);

    // Sets the resolution of all pixel values.
    void setDpi(int32_t dpi);
    // Sets the number of tracks that belong to the sheet.
    void setCount(int32_t count) { mCount = count; }
    int32_t count() const { return mCount; }

    // The first pixel of a track. Hidden tracks have no pixels. REQUIRES: 0 <=
    // track <= count().
    int64_t position(int32_t track) const;
    int64_t size(int32_t track) const { return position(track + 1) - position(track); }
    int64_t total() const { return position(mCount); }
    // The track at a pixel, a visible one if there is any. Pixels outside
    // belong to the first or the last visible track.
    int32_t trackAt(int64_t pixel) const;
    // Number of tracks needed to fill `pixels`, not limited by count().
    int32_t countUpTo(int64_t pixels) const;

    int32_t twips(int32_t track) const;
    // The pixel, with its fraction, at which the suite paints an object at
    // `place`, an unrounded position in twips.
    double paintedAt(double place, int32_t dpi) const;
    // How far behind paintedAt the suite paints an object in a tile that starts at
    // `pixel`. The suite takes the pixels from the start of the tile's first track
    // to the tile for pixels of 96 dpi.
    double displacementAt(int64_t pixel, int32_t dpi) const;
    bool isHidden(int32_t track) const;
    int32_t visibleIn(int32_t first, int32_t last) const;
    // A range takes in the hidden tracks right before its first one, true
    // when there are any, or those right behind its last.
    bool widenOverHiddenBefore(int32_t& first) const;
    void widenOverHiddenBehind(int32_t& last) const;

    // The least size in twips that results in `pixels`.
    static int32_t twipsFor(int64_t pixels, int32_t dpi);

private:
    struct Run {
        int32_t first;
        int32_t last;
        int32_t twips;
        bool hidden;
        int64_t twipsBefore; // sum of all visible tracks before the run
        int64_t pixels = 0;  // of each track
        int64_t start = 0;   // first pixel of the run
    };
    const Run& runOf(int32_t track) const;
    // The last run that begins before a position in twips, or else the first
    // run. The end of a track does not count as the start of the next.
    const Run& runBefore(double place) const;
    int32_t trackAmongAll(int64_t pixel) const;

    std::vector<Run> mRuns; // without gaps, in track order
    int32_t mCount = 0;
};

} // namespace lectern::engine
