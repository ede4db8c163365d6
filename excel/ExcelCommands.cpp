// SPDX-License-Identifier: Apache-2.0
// Commands on a selection: hiding, sorting, copying.
#include "excel/Excel.h"
#include "view/OutputFile.h"
#include "view/TextHelpers.h"

#include <cstdio>
#include <memory>

namespace {

constexpr int32_t COPY_CAPACITY = 4096; // UTF-16 units
constexpr int32_t COLUMN_LOOKUP_Y = 10; // the document row at which the column is looked up

struct FileClose {
    void operator()(FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<FILE, FileClose>;

// Null on failure.
File prvOpenForWriting(const char* path) {
    lectern::FileDescriptor descriptor = openForWriting(path);
    File file(descriptor ? fdopen(descriptor.get(), "w") : nullptr);
    if (file != nullptr) {
        (void)descriptor.release();
    }
    return file;
}

void prvWrite(const std::string& text, const char* path) {
    const File file = prvOpenForWriting(path);
    if (file == nullptr) {
        std::fputs("Excel::copySelection: fileptr is null", stdout);
        std::fflush(stdout); // the text has no line feed, which would flush it
    } else if (std::fwrite(text.data(), 1, text.size(), file.get()) != 4) {
        // Every length but 4 is reported as a failure: readers of the log expect that.
        std::fputs("Failure writing\n", stderr);
    }
}

} // namespace

void Excel::contentsChanged() {
    mOffscreenDirty = true;
    InvalidateScreen();
}

int Excel::clearSelection() {
    if (isOpen()) {
        mModule.stg_clear_selection(mDocument);
    }
    contentsChanged();
    return 0;
}

const TrackKind& Excel::selectedTracks() const {
    return mSelection.Left() == 0 && mSelection.Right() == 0 ? ROW_TRACKS : COLUMN_TRACKS;
}

void Excel::applyToSelection(decltype(TrackKind::hide) TrackKind::*operation) {
    if (isOpen()) {
        const TrackKind& tracks = selectedTracks();
        const CpPoint first(mSelection.Left(), mSelection.Top());
        const CpPoint last(mSelection.Right(), mSelection.Bottom());
        (mModule.*(tracks.*operation))(mDocument, mCurrentSheet, first.*tracks.along, last.*tracks.along);
    }
    contentsChanged();
}

void Excel::hideSelection() {
    applyToSelection(&TrackKind::hide);
}

void Excel::unhideSelection() {
    applyToSelection(&TrackKind::unhide);
}

void Excel::unhideAll() {
    if (isOpen()) {
        mModule.stg_unhide_all_rows(mDocument, mCurrentSheet);
        mModule.stg_unhide_all_columns(mDocument, mCurrentSheet);
    }
    contentsChanged();
}

int Excel::sortAscending() {
    return sortSheet(mModule.stg_sort_ascending);
}

int Excel::sortDescending() {
    return sortSheet(mModule.stg_sort_descending);
}

int Excel::sortSheet(decltype(STGFunc::stg_sort_ascending) sort) {
    if (!isOpen()) {
        return -1;
    }
    const int x = mSelection.Right();
    int32_t column = 0;
    int32_t row = 0;
    int32_t selected = 0;
    mModule.stg_get_cell_reference_at_location(mDocument, mCurrentSheet, x, COLUMN_LOOKUP_Y, &column, &row);
    mModule.stg_select_area(mDocument, mCurrentSheet, 0, 0, mSheetWidth, mSheetHeight);
    const int32_t failed = sort(mDocument, mCurrentSheet, column);
    mModule.stg_select_column(mDocument, mCurrentSheet, x, x, &selected);
    refreshCommentMarks();
    mOffscreenDirty = true;
    return failed != 0 ? -1 : column;
}

std::string Excel::selectedText() {
    uint16_t text[COPY_CAPACITY] = {};
    int32_t length = 0;
    if (isOpen()) {
        mModule.stg_copy_selection(mDocument, text, COPY_CAPACITY, 0, &length);
    }
    return utf8OfBuffer(text);
}

int Excel::copySelection(const char* path) {
    prvWrite(selectedText(), path);
    return clearSelection();
}

void Excel::setResizeMode(bool on) {
    mResizeMode = on;
    setDirty();
}
