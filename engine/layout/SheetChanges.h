// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/protocol/Vocabulary.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <vector>

namespace lectern::engine {

// How a sheet in memory differs from the one in the file: not the steps that led there,
// but the least that leads there again. As numbers it can be given to another engine.
class SheetChanges {
public:
    struct Sort {
        std::int32_t column;
        bool ascending;
        friend bool operator==(const Sort&, const Sort&) = default;
    };
    struct Run {
        std::int32_t first;
        std::int32_t last;
        friend bool operator==(const Run&, const Run&) = default;
    };
    struct Visibility {
        Run run;
        bool visible;
        friend bool operator==(const Visibility&, const Visibility&) = default;
    };
    // The tracks that one command has hidden.
    struct Hidden {
        Axis axis;
        std::vector<Run> runs;
        friend bool operator==(const Hidden&, const Hidden&) = default;
    };
    static constexpr std::int32_t FITTING = 0; // a size in twips: that of the contents

    // Note a change. A later sort by the same column makes an earlier one pointless, since
    // sorts keep the order of equal rows.
    void sort(const Sort& sort);
    void resize(Axis axis, std::int32_t track, std::int32_t twips);
    void show(Axis axis, const Run& run, bool visible);

    const std::vector<Sort>& sorts() const { return mSorts; } // the first one first
    const std::map<std::int32_t, std::int32_t>& sizes(Axis axis) const { return of(axis).sizes; }
    std::vector<Visibility> visibilities(Axis axis) const;
    // What the commands have hidden that is not shown again; the latest last.
    std::vector<Hidden>& hidden() { return mHidden; }
    const std::vector<Hidden>& hidden() const { return mHidden; }

    std::vector<std::int32_t> numbers() const;
    // Nothing if the numbers are not those of changes.
    static std::optional<SheetChanges> read(std::span<const std::int32_t> numbers);

private:
    struct OfAxis {
        std::map<std::int32_t, std::int32_t> sizes; // in twips, by track
        // Whether the tracks from one on are visible; nothing where that was never changed.
        std::map<std::int32_t, std::optional<bool>> visible;
    };
    OfAxis& of(Axis axis) { return mAxes[static_cast<std::size_t>(axis)]; }
    const OfAxis& of(Axis axis) const { return mAxes[static_cast<std::size_t>(axis)]; }

    std::vector<Sort> mSorts;
    std::array<OfAxis, 2> mAxes;
    std::vector<Hidden> mHidden;
};

} // namespace lectern::engine
