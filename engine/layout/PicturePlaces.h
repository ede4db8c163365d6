// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <list>
#include <optional>

namespace lectern::engine {

// Records which slide is painted at which of a number of places, so that returning
// to a recently painted slide needs no paint. Places are numbered from 0.
class PicturePlaces {
public:
    // A count below 1 is taken as 1.
    explicit PicturePlaces(int32_t count);

    // The place of a slide; counts as a use of that place.
    std::optional<int32_t> find(int32_t slide);
    // Whether a slide has a place; does not count as a use.
    bool has(int32_t slide) const;
    // Returns a place to paint on and removes its slide: an empty place, or
    // else the least recently used one.
    int32_t take();
    // The place that take() would return.
    int32_t next();
    // Records that the slide has been painted at a place.
    void keep(int32_t place, int32_t slide);
    void clear();

private:
    struct Place {
        int32_t index;
        std::optional<int32_t> slide;
    };
    using Iterator = std::list<Place>::iterator;
    Iterator candidate();
    Place& use(Iterator place);

    std::list<Place> mPlaces; // the most recently used one first
};

} // namespace lectern::engine
