// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/PicturePlaces.h"

#include <algorithm>
#include <iterator>

namespace lectern::engine {

PicturePlaces::PicturePlaces(int32_t count) {
    for (int32_t index = 0; index < std::max<int32_t>(count, 1); ++index) {
        mPlaces.push_back({index, std::nullopt});
    }
}

PicturePlaces::Place& PicturePlaces::use(Iterator place) {
    mPlaces.splice(mPlaces.begin(), mPlaces, place);
    return mPlaces.front();
}

std::optional<int32_t> PicturePlaces::find(int32_t slide) {
    const auto found = std::find_if(mPlaces.begin(), mPlaces.end(),
                                    [&](const Place& place) { return place.slide == slide; });
    if (found == mPlaces.end()) {
        return std::nullopt;
    }
    return use(found).index;
}

bool PicturePlaces::has(int32_t slide) const {
    return std::any_of(mPlaces.begin(), mPlaces.end(),
                       [&](const Place& place) { return place.slide == slide; });
}

PicturePlaces::Iterator PicturePlaces::candidate() {
    const auto empty =
        std::find_if(mPlaces.begin(), mPlaces.end(), [](const Place& place) { return !place.slide; });
    return empty != mPlaces.end() ? empty : std::prev(mPlaces.end());
}

int32_t PicturePlaces::next() {
    return candidate()->index;
}

int32_t PicturePlaces::take() {
    Place& place = use(candidate());
    place.slide.reset();
    return place.index;
}

void PicturePlaces::keep(int32_t place, int32_t slide) {
    const auto found = std::find_if(mPlaces.begin(), mPlaces.end(),
                                    [&](const Place& candidate) { return candidate.index == place; });
    if (found != mPlaces.end()) {
        use(found).slide = slide;
    }
}

void PicturePlaces::clear() {
    for (Place& place : mPlaces) {
        place.slide.reset();
    }
}

} // namespace lectern::engine
