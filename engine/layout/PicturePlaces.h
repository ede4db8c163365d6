// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <list>
#include <optional>

namespace lectern::engine {

// Which slide is painted at which of a number of places, so that going back to
// one of those painted last costs no paint.
class PicturePlaces {
public:
    // At least 1.
    explicit PicturePlaces(int32_t count);

    // Where the slide is.
    std::optional<int32_t> find(int32_t slide);
    // Whether it is somewhere; not a use.
    bool has(int32_t slide) const;
    // A place to paint on, with no slide there: an empty one, else that used
    // longest ago.
    int32_t take();
    // The place that take() would give.
    int32_t next();
    // The slide has been painted there.
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

    std::list<Place> mPlaces; // the one used last comes first
};

} // namespace lectern::engine
