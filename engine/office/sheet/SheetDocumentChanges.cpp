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

using Run = SheetChanges::Run;

std::vector<Run> visibleRuns(const Tracks& tracks, int32_t first, int32_t last) {
    std::vector<Run> runs;
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

bool hasAnyOf(const SheetChanges::Hidden& hidden, Axis axis, int32_t first, int32_t last) {
    return hidden.axis == axis && std::any_of(hidden.runs.begin(), hidden.runs.end(), [&](const Run& run) {
               return run.last >= first && run.first <= last;
           });
}

int32_t resultOf(bool done) {
    return done ? MODULE_OK : MODULE_FAILED;
}

} // namespace

// A sort takes the hidden rows along to their new places. On a sheet with rows of another
// height it makes all rows as high as their contents.
void SheetDocument::Private::noteSort(int32_t sheet, const SheetChanges::Sort& sort) {
    SheetChanges& noted = changes[sheet];
    noted.sort(sort);
    const Tracks& rows = book.geometry(sheet).rows;
    constexpr int32_t MOST_NOTED = 20'000; // takes half a second to restore
    for (int32_t row = 0; !noted.sizes(Axis::Rows).empty() && row < std::min(rows.count(), MOST_NOTED);
         ++row) {
        if (!rows.isHidden(row)) {
            noted.resize(Axis::Rows, row, rows.twips(row));
        }
    }
    const Run all{0, rows.count() - 1};
    if (rows.visibleIn(all.first, all.last) < rows.count() || !noted.visibilities(Axis::Rows).empty()) {
        noted.show(Axis::Rows, all, false);
        for (const Run& run : visibleRuns(rows, all.first, all.last)) {
            noted.show(Axis::Rows, run, true);
        }
    }
}

bool SheetDocument::Private::show(int32_t sheet, Axis axis, const SheetChanges::Run& run, bool visible) {
    if (!setProperty(tracksOf(book.sheet(sheet), axis, run.first, run.last), "IsVisible", visible)) {
        return false;
    }
    changes[sheet].show(axis, run, visible);
    return true;
}

bool SheetDocument::Private::resize(int32_t sheet, Axis axis, int32_t track, int32_t twips) {
    const auto object = tracksOf(book.sheet(sheet), axis, track, track);
    const bool done = twips == SheetChanges::FITTING
                          ? setProperty(object, "OptimalWidth", true)
                          : setProperty(object, axis == Axis::Columns ? "Width" : "Height",
                                        static_cast<sal_Int32>(hundredthMmFromTwips(twips)));
    if (done) {
        changes[sheet].resize(axis, track, twips);
    }
    return done;
}

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
        if (result == MODULE_OK) {
            d.noteSort(sheet, {column, ascending});
        }
        return result;
    });
}

int32_t SheetDocument::hide(int32_t sheet, Axis axis, int32_t first, int32_t last) {
    Private& d = *mPrivate;
    return d.onTracks(sheet, axis, [&](const Tracks& tracks) -> int32_t {
        const int32_t from = tracks.trackAt(std::min(first, last));
        const int32_t to = tracks.trackAt(std::max(first, last));
        const std::vector<Run> runs = visibleRuns(tracks, from, to);
        if (!d.show(sheet, axis, {from, to}, false)) {
            return MODULE_FAILED;
        }
        if (!runs.empty()) {
            d.changes[sheet].hidden().push_back({axis, runs});
        }
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
        // Those that were hidden last come back without their hidden neighbours.
        std::vector<SheetChanges::Hidden>& hidden = d.changes[sheet].hidden();
        const auto latest =
            std::find_if(hidden.rbegin(), hidden.rend(),
                         [&](const SheetChanges::Hidden& one) { return hasAnyOf(one, axis, from, to); });
        if (latest == hidden.rend()) {
            return resultOf(d.show(sheet, axis, {from, to}, true));
        }
        const std::vector<Run> runs = latest->runs;
        hidden.erase(std::next(latest).base());
        return resultOf(std::all_of(runs.begin(), runs.end(),
                                    [&](const Run& run) { return d.show(sheet, axis, run, true); }));
    });
}

int32_t SheetDocument::unhideAll(int32_t sheet, Axis axis) {
    Private& d = *mPrivate;
    return d.onTracks(sheet, axis, [&](const Tracks& tracks) {
        std::erase_if(d.changes[sheet].hidden(),
                      [&](const SheetChanges::Hidden& hidden) { return hidden.axis == axis; });
        return resultOf(d.show(sheet, axis, {0, tracks.count() - 1}, true));
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
        const int32_t before = tracks.twips(track);
        if (!d.resize(sheet, axis, track, Tracks::twipsFor(wanted, d.dpi))) {
            return MODULE_FAILED;
        }
        d.book.changed(sheet);
        // The suite has limits of its own and does not report them.
        if (d.book.geometry(sheet).along(axis).size(track) == wanted) {
            return MODULE_OK;
        }
        d.resize(sheet, axis, track, before);
        return MODULE_BAD_ARGUMENT;
    });
}

int32_t SheetDocument::autofitColumn(int32_t sheet, int32_t x) {
    return mPrivate->onTracks(sheet, Axis::Columns, [&](const Tracks& tracks) {
        return resultOf(mPrivate->resize(sheet, Axis::Columns, tracks.trackAt(x), SheetChanges::FITTING));
    });
}

} // namespace lectern::engine
