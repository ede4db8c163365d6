// SPDX-License-Identifier: Apache-2.0
#include "engine/process/endpoints/SheetEndpoint.h"

#include "engine/process/endpoints/Handlers.h"
#include "engine/protocol/Inherited.h"

#include <EngineProtocol.h>

namespace lectern::engine {
namespace {

using Skeleton = LecternIpcSheet;
using Invocation = GDBusMethodInvocation;
using Document = SheetDocument;

SheetEndpoint& serviceOf(gpointer user) {
    return *static_cast<SheetEndpoint*>(user);
}

gboolean handleOpen(Skeleton* sheet, Invocation* invocation, const gchar* path, const gchar* password,
                    gpointer user) {
    return answer(serviceOf(user), &lectern_ipc_sheet_complete_open, sheet, invocation,
                  serviceOf(user).open(path, std::string(password)));
}

gboolean handleSetSurface(Skeleton* sheet, Invocation* invocation, GUnixFDList* files, gint area,
                          GVariant* memory, gint width, gint height, gpointer user) {
    const FileDescriptor file = fileOf(files, memory);
    lectern_ipc_sheet_complete_set_surface(sheet, invocation, nullptr,
                                           serviceOf(user).setSurface(area, file.get(), width, height));
    return TRUE;
}

gboolean handleMeasure(Skeleton* sheet, Invocation* invocation, gint index, gpointer user) {
    std::int32_t columns = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    PixelRect corner;
    std::vector<PixelRect> comments;
    const std::int32_t result = serviceOf(user).run([&](Document& document) {
        // The first failure is the answer.
        std::int32_t measured = document.columnCount(index, columns);
        measured = measured != MODULE_OK ? measured : document.dimensions(index, width, height);
        measured = measured != MODULE_OK ? measured : document.cellBounds(index, -1, -1, corner);
        return measured != MODULE_OK ? measured : document.commentMarks(index, comments);
    });
    return answer(serviceOf(user), &lectern_ipc_sheet_complete_measure, sheet, invocation, result, columns,
                  width, height, corner.width, corner.height, written(comments));
}

gboolean handleCellBounds(Skeleton* sheet, Invocation* invocation, gint index, gint x, gint y,
                          gpointer user) {
    PixelRect bounds;
    const std::int32_t result =
        serviceOf(user).run([&](Document& document) { return document.cellBounds(index, x, y, bounds); });
    return answer(serviceOf(user), &lectern_ipc_sheet_complete_cell_bounds, sheet, invocation, result,
                  bounds.x, bounds.y, bounds.width, bounds.height);
}

gboolean handleTapArea(Skeleton* sheet, Invocation* invocation, gint index, gint x, gint y, gpointer user) {
    PixelRect area;
    const std::int32_t result =
        serviceOf(user).run([&](Document& document) { return document.tapArea(index, x, y, area); });
    return answer(serviceOf(user), &lectern_ipc_sheet_complete_tap_area, sheet, invocation, result, area.x,
                  area.y, area.width, area.height);
}

void appendNumbers(std::vector<std::int32_t>& numbers, const SheetCell& cell) {
    const PixelRect& r = cell.place;
    numbers.insert(numbers.end(), {cell.column, cell.row, r.x, r.y, r.width, r.height});
}

gboolean handleCell(Skeleton* sheet, Invocation* invocation, gint index, gint column, gint row,
                    gpointer user) {
    SheetCell cell;
    std::vector<std::int32_t> numbers;
    const std::int32_t result =
        serviceOf(user).run([&](Document& document) { return document.cell(index, column, row, cell); });
    appendNumbers(numbers, cell);
    return answer(serviceOf(user), &lectern_ipc_sheet_complete_cell, sheet, invocation, result,
                  written(numbers), written(cell.text), written(cell.formula));
}

gboolean handleCells(Skeleton* sheet, Invocation* invocation, gint index, gint x, gint y, gint width,
                     gint height, gpointer user) {
    std::vector<SheetCell> cells;
    std::vector<std::int32_t> numbers;
    std::u16string texts;
    const std::int32_t result = serviceOf(user).run(
        [&](Document& document) { return document.cells(index, x, y, width, height, cells); });
    for (const SheetCell& cell : cells) {
        appendNumbers(numbers, cell);
        texts.append(cell.text.c_str(), cell.text.size() + 1);
    }
    return answer(serviceOf(user), &lectern_ipc_sheet_complete_cells, sheet, invocation, result,
                  written(numbers), written(texts));
}

gboolean handleSelection(Skeleton* sheet, Invocation* invocation, gpointer user) {
    std::vector<std::int32_t> numbers;
    const std::int32_t result = serviceOf(user).run([&](Document& document) {
        numbers = document.selection();
        return MODULE_OK;
    });
    return answer(serviceOf(user), &lectern_ipc_sheet_complete_selection, sheet, invocation, result,
                  written(numbers));
}

void connectView(const Connector<SheetEndpoint>& on) {
    on.handler("handle-open", &handleOpen);
    on.handler("handle-open-any", &handleOpenAny<SheetEndpoint, &lectern_ipc_sheet_complete_open_any>);
    on.handler("handle-set-surface", &handleSetSurface);
    on.operation<&Document::setDpi, &lectern_ipc_sheet_complete_set_dpi>("handle-set-dpi");
    on.operation<&Document::render, &lectern_ipc_sheet_complete_render>("handle-render");
    on.operation<&Document::sheetCount, &lectern_ipc_sheet_complete_sheet_count>("handle-sheet-count");
    on.operation<&Document::title, &lectern_ipc_sheet_complete_title>("handle-title");
    on.handler("handle-measure", &handleMeasure);
    on.handler("handle-cell-bounds", &handleCellBounds);
    on.operation<&Document::cellAt, &lectern_ipc_sheet_complete_cell_at>("handle-cell-at");
    on.operation<&Document::releaseMemory, &lectern_ipc_sheet_complete_release_memory>(
        "handle-release-memory");
    on.handler("handle-information",
               &handleInformation<SheetEndpoint, &lectern_ipc_sheet_complete_information>);
}

void connectFinding(const Connector<SheetEndpoint>& on) {
    on.operation<&Document::comment, &lectern_ipc_sheet_complete_comment>("handle-comment");
    on.handler("handle-set-highlight-color",
               &handleHighlightColor<SheetEndpoint, &lectern_ipc_sheet_complete_set_highlight_color>);
    on.operation<&Document::find, &lectern_ipc_sheet_complete_find>("handle-find");
    on.operation<&Document::foundRegions, &lectern_ipc_sheet_complete_found_regions>("handle-found-regions");
    on.operation<&Document::stopFind, &lectern_ipc_sheet_complete_stop_find>("handle-stop-find");
    on.operation<&Document::selectArea, &lectern_ipc_sheet_complete_select_area>("handle-select-area");
    on.operation<&Document::selectTracks, &lectern_ipc_sheet_complete_select_tracks>("handle-select-tracks");
    on.operation<&Document::selectCell, &lectern_ipc_sheet_complete_select_cell>("handle-select-cell");
    on.operation<&Document::clearSelection, &lectern_ipc_sheet_complete_clear_selection>(
        "handle-clear-selection");
    on.operation<&Document::copySelection, &lectern_ipc_sheet_complete_copy_selection>(
        "handle-copy-selection");
}

void connectCells(const Connector<SheetEndpoint>& on) {
    on.handler("handle-cell", &handleCell);
    on.handler("handle-cells", &handleCells);
    on.handler("handle-tap-area", &handleTapArea);
    on.operation<&Document::setFindOptions, &lectern_ipc_sheet_complete_set_find_options>(
        "handle-set-find-options");
}

void connectChanges(const Connector<SheetEndpoint>& on) {
    on.operation<&Document::sort, &lectern_ipc_sheet_complete_sort>("handle-sort");
    on.operation<&Document::hide, &lectern_ipc_sheet_complete_hide>("handle-hide");
    on.operation<&Document::unhide, &lectern_ipc_sheet_complete_unhide>("handle-unhide");
    on.operation<&Document::unhideAll, &lectern_ipc_sheet_complete_unhide_all>("handle-unhide-all");
    on.operation<&Document::resize, &lectern_ipc_sheet_complete_resize>("handle-resize");
    on.operation<&Document::changes, &lectern_ipc_sheet_complete_changes>("handle-changes");
    on.operation<&Document::restoreChanges, &lectern_ipc_sheet_complete_restore_changes>(
        "handle-restore-changes");
    on.handler("handle-selection", &handleSelection);
    on.operation<&Document::restoreSelection, &lectern_ipc_sheet_complete_restore_selection>(
        "handle-restore-selection");
    on.operation<&Document::autofitColumn, &lectern_ipc_sheet_complete_autofit_column>(
        "handle-autofit-column");
}

} // namespace

SheetEndpoint::SheetEndpoint() : DocumentEndpoint(lectern_ipc_sheet_skeleton_new(), SHEET_PATH) {
    const Connector<SheetEndpoint> connector(skeleton(), this);
    connectView(connector);
    connectFinding(connector);
    connectCells(connector);
    connectChanges(connector);
}

std::int32_t SheetEndpoint::setSurface(std::int32_t area, int memory, std::int32_t width,
                                       std::int32_t height) {
    if (area < 0) {
        return MODULE_BAD_ARGUMENT;
    }
    return replaceSurface(static_cast<std::size_t>(area), MappedSurface::map(memory, width, height),
                          [&](Document& document, std::uint32_t* pixels) {
                              return document.setSurface(static_cast<SheetArea>(area), pixels, width, height);
                          });
}

} // namespace lectern::engine
