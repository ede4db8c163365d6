// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/SheetChanges.h"

#include <algorithm>
#include <iterator>

namespace lectern::engine {
namespace {

constexpr Axis AXES[] = {Axis::Columns, Axis::Rows};

// Takes numbers one by one; isComplete() is false once one was missing or impossible.
class Reader {
public:
    explicit Reader(std::span<const std::int32_t> numbers) : mRest(numbers) {}

    std::int32_t take(std::int32_t least) {
        if (mRest.empty() || mRest.front() < least) {
            mComplete = false;
            return least;
        }
        const std::int32_t number = mRest.front();
        mRest = mRest.subspan(1);
        return number;
    }
    SheetChanges::Run takeRun() {
        const std::int32_t first = take(0);
        return {first, take(first)};
    }
    // Takes a count, and so many elements with take().
    template<class Take>
    void each(Take takeOne) {
        for (std::int32_t left = take(0); left > 0 && mComplete; --left) {
            takeOne();
        }
    }
    bool isComplete() const { return mComplete; }
    bool isAtEnd() const { return mRest.empty(); }

private:
    std::span<const std::int32_t> mRest;
    bool mComplete = true;
};

} // namespace

void SheetChanges::sort(const Sort& sort) {
    std::erase_if(mSorts, [&](const Sort& earlier) { return earlier.column == sort.column; });
    mSorts.push_back(sort);
}

void SheetChanges::resize(Axis axis, std::int32_t track, std::int32_t twips) {
    of(axis).sizes[track] = twips;
}

void SheetChanges::show(Axis axis, const Run& run, bool visible) {
    std::map<std::int32_t, std::optional<bool>>& from = of(axis).visible;
    const auto after = from.upper_bound(run.last + 1);
    const std::optional<bool> behind = after == from.begin() ? std::nullopt : std::prev(after)->second;
    from.erase(from.lower_bound(run.first), after);
    from[run.first] = visible;
    from[run.last + 1] = behind;
}

std::vector<SheetChanges::Visibility> SheetChanges::visibilities(Axis axis) const {
    std::vector<Visibility> all;
    const auto& from = of(axis).visible;
    for (auto one = from.begin(); one != from.end(); ++one) {
        if (!one->second) {
            continue;
        }
        const std::int32_t last = std::next(one)->first - 1; // the last one is never of a change
        if (!all.empty() && all.back().run.last == one->first - 1 && all.back().visible == *one->second) {
            all.back().run.last = last;
        } else {
            all.push_back({{one->first, last}, *one->second});
        }
    }
    return all;
}

std::vector<std::int32_t> SheetChanges::numbers() const {
    std::vector<std::int32_t> all;
    const auto count = [&](const auto& container) {
        all.push_back(static_cast<std::int32_t>(container.size()));
    };
    count(mSorts);
    for (const Sort& sort : mSorts) {
        all.insert(all.end(), {sort.column, sort.ascending ? 1 : 0});
    }
    for (const Axis axis : AXES) {
        count(sizes(axis));
        for (const auto& [track, twips] : sizes(axis)) {
            all.insert(all.end(), {track, twips});
        }
        const std::vector<Visibility> runs = visibilities(axis);
        count(runs);
        for (const Visibility& one : runs) {
            all.insert(all.end(), {one.run.first, one.run.last, one.visible ? 1 : 0});
        }
    }
    count(mHidden);
    for (const Hidden& hidden : mHidden) {
        all.push_back(static_cast<std::int32_t>(hidden.axis));
        count(hidden.runs);
        for (const Run& run : hidden.runs) {
            all.insert(all.end(), {run.first, run.last});
        }
    }
    return all;
}

std::optional<SheetChanges> SheetChanges::read(std::span<const std::int32_t> numbers) {
    SheetChanges changes;
    Reader reader(numbers);
    reader.each([&] {
        const std::int32_t column = reader.take(0);
        changes.sort({column, reader.take(0) != 0});
    });
    for (const Axis axis : AXES) {
        reader.each([&] {
            const std::int32_t track = reader.take(0);
            changes.resize(axis, track, reader.take(FITTING));
        });
        reader.each([&] {
            const Run run = reader.takeRun();
            changes.show(axis, run, reader.take(0) != 0);
        });
    }
    reader.each([&] {
        Hidden& hidden = changes.mHidden.emplace_back();
        hidden.axis = reader.take(0) == 0 ? Axis::Columns : Axis::Rows;
        reader.each([&] { hidden.runs.push_back(reader.takeRun()); });
    });
    return reader.isComplete() && reader.isAtEnd() ? std::optional(std::move(changes)) : std::nullopt;
}

} // namespace lectern::engine
