// SPDX-License-Identifier: Apache-2.0
// Changes of the sheet in memory; the file is not changed.
#include "engine/layout/Twips.h"
#include "engine/office/sheet/SheetDocumentPrivate.h"
#include "engine/office/sheet/SheetSort.h"

#include <com/sun/star/table/XColumnRowRange.hpp>

#include <algorithm>
#include <iterator>
#include <limits>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace {

// The columns or rows `first` to `last` as one object with properties.
Reference<css::beans::XPropertySet> tracksOf(const Reference<css::sheet::XSpreadsheet>& sheet, Axis axis,
                                             int32_t first, int32_t last) {
    const bool columns = axis == Axis::Columns;
    const Reference<css::table::XColumnRowRange> block(columns
                                                           ? sheet->getCellRangeByPosition(first, 0, last, 0)
                                                           : sheet->getCellRangeByPosition(0, first, 0, last),
                                                       UNO_QUERY_THROW);
    return columns ? propertiesOf(block->getColumns()) : propertiesOf(block->getRows());
}

std::vector<HiddenTracks::Run> visibleRuns(const Tracks& tracks, int32_t first, int32_t last) {
    std::vector<HiddenTracks::Run> runs;
    for (int32_t track = first; track <= last; ++track) {
        if (tracks.isHidden(track)) {
            continue;
        }
        if (!runs.empty() && runs.back().last == track - 1) {
            runs.back().last = track;
        } else {
            runs.push_back({track, track});
        }
    }
    return runs;
}

int32_t resultOf(bool done) {
    return done ? MODULE_OK : MODULE_FAILED;
}

} // namespace

int32_t SheetDocument::sort(int32_t sheet, int32_t column, bool ascending) {
    Private& d = *mPrivate;
    return d.onSheet(sheet, [&](const SheetGeometry& geometry) -> int32_t {
        if (column < 0 || column >= geometry.columns.count()) {
            return MODULE_BAD_ARGUMENT;
        }
        d.book.aboutToChange(sheet);
        const int32_t result = sortSheet(d.book, sheet, column, ascending);
        d.book.changed(sheet);
        // Sorting has moved the cells of the hits.
        if (result == MODULE_OK && d.hits.sheet() == sheet) {
            d.hits = CellHits();
        }
        return result;
    });
}

int32_t SheetDocument::hide(int32_t sheet, Axis axis, int32_t first, int32_t last) {
    Private& d = *mPrivate;
    return d.onTracks(sheet, axis, [&](const Tracks& tracks) -> int32_t {
        const int32_t from = tracks.trackAt(std::min(first, last));
        const int32_t to = tracks.trackAt(std::max(first, last));
        const std::vector<HiddenTracks::Run> runs = visibleRuns(tracks, from, to);
        if (!setProperty(tracksOf(d.book.sheet(sheet), axis, from, to), "IsVisible", false)) {
            return MODULE_FAILED;
        }
        d.hidden.push_back({sheet, axis, runs});
        return MODULE_OK;
    });
}

int32_t SheetDocument::unhide(int32_t sheet, Axis axis, int32_t first, int32_t last) {
    Private& d = *mPrivate;
    return d.onTracks(sheet, axis, [&](const Tracks& tracks) -> int32_t {
        int32_t from = tracks.trackAt(std::min(first, last));
        int32_t to = tracks.trackAt(std::max(first, last));
        // Hidden tracks at a position lie right before the track that is shown
        // there. Behind the sheet's end no track is shown.
        if (std::min(first, last) >= tracks.total() || !tracks.widenOverHiddenBefore(from)) {
            tracks.widenOverHiddenBehind(to);
        }
        const auto show = [&](int32_t one, int32_t other) {
            return setProperty(tracksOf(d.book.sheet(sheet), axis, one, other), "IsVisible", true);
        };
        // Those that were hidden last come back without their hidden neighbours.
        const auto latest = std::find_if(d.hidden.rbegin(), d.hidden.rend(), [&](const HiddenTracks& hidden) {
            return hidden.hasAnyOf(sheet, axis, from, to);
        });
        if (latest == d.hidden.rend()) {
            return resultOf(show(from, to));
        }
        const std::vector<HiddenTracks::Run> runs = latest->runs;
        d.hidden.erase(std::next(latest).base());
        return resultOf(std::all_of(runs.begin(), runs.end(),
                                    [&](const HiddenTracks::Run& run) { return show(run.first, run.last); }));
    });
}

int32_t SheetDocument::unhideAll(int32_t sheet, Axis axis) {
    Private& d = *mPrivate;
    return d.onTracks(sheet, axis, [&](const Tracks& tracks) {
        std::erase_if(d.hidden, [&](const HiddenTracks& hidden) {
            return hidden.sheet == sheet && hidden.axis == axis;
        });
        return resultOf(
            setProperty(tracksOf(d.book.sheet(sheet), axis, 0, tracks.count() - 1), "IsVisible", true));
    });
}

int32_t SheetDocument::resize(int32_t sheet, Axis axis, int32_t at, int32_t change) {
    Private& d = *mPrivate;
    constexpr int32_t MOST_TWIPS = std::numeric_limits<uint16_t>::max(); // largest size of a track
    return d.onTracks(sheet, axis, [&](const Tracks& tracks) -> int32_t {
        const int32_t track = tracks.trackAt(at);
        const int64_t wanted = tracks.size(track) + change;
        if (wanted < 1 || wanted * TWIPS_PER_INCH / d.dpi > MOST_TWIPS) {
            return MODULE_BAD_ARGUMENT;
        }
        const auto object = tracksOf(d.book.sheet(sheet), axis, track, track);
        const char* const size = axis == Axis::Columns ? "Width" : "Height";
        const int32_t before = tracks.twips(track);
        const auto set = [&](int32_t twips) {
            return setProperty(object, size, static_cast<sal_Int32>(hundredthMmFromTwips(twips)));
        };
        if (!set(Tracks::twipsFor(wanted, d.dpi))) {
            return MODULE_FAILED;
        }
        d.book.changed(sheet);
        // The suite has limits of its own and does not report them.
        if (d.book.geometry(sheet).along(axis).size(track) == wanted) {
            return MODULE_OK;
        }
        set(before);
        return MODULE_BAD_ARGUMENT;
    });
}

int32_t SheetDocument::autofitColumn(int32_t sheet, int32_t x) {
    return mPrivate->onTracks(sheet, Axis::Columns, [&](const Tracks& tracks) {
        const int32_t column = tracks.trackAt(x);
        return resultOf(setProperty(tracksOf(mPrivate->book.sheet(sheet), Axis::Columns, column, column),
                                    "OptimalWidth", true));
    });
}

} // namespace lectern::engine
