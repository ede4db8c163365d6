// SPDX-License-Identifier: Apache-2.0
#include "engine/process/SheetService.h"

#include "engine/protocol/FileDescriptor.h"
#include "engine/protocol/Guarded.h"
#include "engine/protocol/Inherited.h"
#include "modules/ModuleResults.h"

#include <EngineProtocol.h>
#include <gio/gio.h>
#include <gio/gunixfdlist.h>

#include <tuple>
#include <utility>

namespace lectern::engine {
namespace {

using Invocation = GDBusMethodInvocation;

SheetService& serviceOf(gpointer user) {
    return *static_cast<SheetService*>(user);
}

// Runs an operation on the open workbook.
template<class Operation>
std::int32_t onDocument(gpointer user, Operation operation) {
    SheetDocument* document = serviceOf(user).document();
    return document == nullptr ? MODULE_FAILED : guarded([&] { return operation(*document); });
}

// What an operation takes, as it comes over the wire.
template<class T>
struct Wire {
    using Type = T;
    static T read(T value) { return value; }
};
template<>
struct Wire<bool> {
    using Type = gboolean;
    static bool read(gboolean value) { return value != FALSE; }
};
template<>
struct Wire<Axis> {
    using Type = gint;
    static Axis read(gint value) { return value == 0 ? Axis::Columns : Axis::Rows; }
};
template<>
struct Wire<std::u16string> {
    using Type = GVariant*;
    static std::u16string read(GVariant* units) {
        gsize count = 0;
        const void* first = g_variant_get_fixed_array(units, &count, sizeof(char16_t));
        const auto* text = static_cast<const char16_t*>(first);
        return {text, text + count};
    }
};

// What an operation gives, as it goes there.
std::int32_t written(std::int32_t number) {
    return number;
}
GVariant* written(const std::u16string& text) {
    return g_variant_new_fixed_array(G_VARIANT_TYPE_UINT16, text.data(), text.size(), sizeof(char16_t));
}
GVariant* written(const std::vector<PixelRect>& rectangles) {
    static_assert(sizeof(PixelRect) == 4 * sizeof(gint32));
    return g_variant_new_fixed_array(G_VARIANT_TYPE_INT32, rectangles.data(), 4 * rectangles.size(),
                                     sizeof(gint32));
}

// The handler of an operation of the document that takes Inputs and gives
// Outputs, a tuple, behind them.
template<auto Operation, auto Complete, class Outputs, class... Inputs>
struct Handler {
    static gboolean handle(LecternIpcSheet* sheet, Invocation* invocation,
                           typename Wire<Inputs>::Type... inputs, gpointer user) {
        Outputs outputs{};
        const std::int32_t result = onDocument(user, [&](SheetDocument& document) {
            return std::apply(
                [&](auto&... output) {
                    return (document.*Operation)(Wire<Inputs>::read(inputs)..., output...);
                },
                outputs);
        });
        std::apply([&](const auto&... output) { Complete(sheet, invocation, result, written(output)...); },
                   outputs);
        return TRUE;
    }
};

gboolean handleOpen(LecternIpcSheet* sheet, Invocation* invocation, const gchar* path, const gchar* password,
                    gpointer user) {
    lectern_ipc_sheet_complete_open(sheet, invocation, serviceOf(user).open(path, password));
    return TRUE;
}

gboolean handleSetSurface(LecternIpcSheet* sheet, Invocation* invocation, GUnixFDList* files, gint area,
                          GVariant* memory, gint width, gint height, gpointer user) {
    const FileDescriptor file(
        files == nullptr ? -1 : g_unix_fd_list_get(files, g_variant_get_handle(memory), nullptr));
    lectern_ipc_sheet_complete_set_surface(sheet, invocation, nullptr,
                                           serviceOf(user).setSurface(area, file.get(), width, height));
    return TRUE;
}

gboolean handleSetHighlightColor(LecternIpcSheet* sheet, Invocation* invocation, guchar red, guchar green,
                                 guchar blue, gpointer user) {
    lectern_ipc_sheet_complete_set_highlight_color(sheet, invocation,
                                                   onDocument(user, [&](SheetDocument& document) {
                                                       return document.setHighlightColour({red, green, blue});
                                                   }));
    return TRUE;
}

gboolean handleInformation(LecternIpcSheet* sheet, Invocation* invocation, gpointer user) {
    DocumentInformation information;
    const std::int32_t result =
        onDocument(user, [&](SheetDocument& document) { return document.information(information); });
    lectern_ipc_sheet_complete_information(sheet, invocation, result, written(information.name),
                                           written(information.author), written(information.description),
                                           information.created, information.lastSaved);
    return TRUE;
}

// Connects handlers to the skeleton, whose calls they answer with the service.
class Connector {
public:
    Connector(LecternIpcSheet* sheet, SheetService* service) : mSheet(sheet), mService(service) {}

    template<class Function>
    void plain(const char* signal, Function* handler) const {
        g_signal_connect(mSheet, signal, G_CALLBACK(handler), mService);
    }
    template<auto Operation, auto Complete, class Outputs, class... Inputs>
    void operation(const char* signal) const {
        plain(signal, &Handler<Operation, Complete, Outputs, Inputs...>::handle);
    }

private:
    LecternIpcSheet* mSheet;
    SheetService* mService;
};

using Document = SheetDocument;
using Number = std::tuple<std::int32_t>;
using TwoNumbers = std::tuple<std::int32_t, std::int32_t>;
using Nothing = std::tuple<>;
using Text = std::tuple<std::u16string>;
using Rectangles = std::tuple<std::vector<PixelRect>>;
using Int = std::int32_t;

gboolean handleCellBounds(LecternIpcSheet* sheet, Invocation* invocation, gint index, gint x, gint y,
                          gpointer user) {
    PixelRect bounds;
    const std::int32_t result =
        onDocument(user, [&](Document& document) { return document.cellBounds(index, x, y, bounds); });
    lectern_ipc_sheet_complete_cell_bounds(sheet, invocation, result, bounds.x, bounds.y, bounds.width,
                                           bounds.height);
    return TRUE;
}

void connectView(const Connector& on) {
    on.plain("handle-open", &handleOpen);
    on.plain("handle-set-surface", &handleSetSurface);
    on.operation<&Document::setDpi, &lectern_ipc_sheet_complete_set_dpi, Nothing, Int>("handle-set-dpi");
    on.operation<&Document::render, &lectern_ipc_sheet_complete_render, Nothing, Int, Int, Int>(
        "handle-render");
    on.operation<&Document::sheetCount, &lectern_ipc_sheet_complete_sheet_count, Number>(
        "handle-sheet-count");
    on.operation<&Document::title, &lectern_ipc_sheet_complete_title, Text, Int>("handle-title");
    on.operation<&Document::columnCount, &lectern_ipc_sheet_complete_column_count, Number, Int>(
        "handle-column-count");
    on.operation<&Document::dimensions, &lectern_ipc_sheet_complete_dimensions, TwoNumbers, Int>(
        "handle-dimensions");
    on.plain("handle-cell-bounds", &handleCellBounds);
    on.operation<&Document::cellAt, &lectern_ipc_sheet_complete_cell_at, TwoNumbers, Int, Int, Int>(
        "handle-cell-at");
    on.plain("handle-information", &handleInformation);
}

void connectFinding(const Connector& on) {
    on.operation<&Document::commentMarks, &lectern_ipc_sheet_complete_comment_marks, Rectangles, Int>(
        "handle-comment-marks");
    on.operation<&Document::comment, &lectern_ipc_sheet_complete_comment, Text, Int, Int, Int>(
        "handle-comment");
    on.plain("handle-set-highlight-color", &handleSetHighlightColor);
    on.operation<&Document::find, &lectern_ipc_sheet_complete_find, Nothing, Int, std::u16string>(
        "handle-find");
    on.operation<&Document::foundRegions, &lectern_ipc_sheet_complete_found_regions, Rectangles>(
        "handle-found-regions");
    on.operation<&Document::stopFind, &lectern_ipc_sheet_complete_stop_find, Nothing>("handle-stop-find");
    on.operation<&Document::selectArea, &lectern_ipc_sheet_complete_select_area, Nothing, Int, Int, Int, Int,
                 Int>("handle-select-area");
    on.operation<&Document::selectTracks, &lectern_ipc_sheet_complete_select_tracks, Number, Int, Axis, Int,
                 Int>("handle-select-tracks");
    on.operation<&Document::selectCell, &lectern_ipc_sheet_complete_select_cell, Nothing, Int, Int, Int>(
        "handle-select-cell");
    on.operation<&Document::clearSelection, &lectern_ipc_sheet_complete_clear_selection, Nothing>(
        "handle-clear-selection");
    on.operation<&Document::copySelection, &lectern_ipc_sheet_complete_copy_selection, Text>(
        "handle-copy-selection");
}

void connectChanges(const Connector& on) {
    on.operation<&Document::sort, &lectern_ipc_sheet_complete_sort, Nothing, Int, Int, bool>("handle-sort");
    on.operation<&Document::hide, &lectern_ipc_sheet_complete_hide, Nothing, Int, Axis, Int, Int>(
        "handle-hide");
    on.operation<&Document::unhide, &lectern_ipc_sheet_complete_unhide, Nothing, Int, Axis, Int, Int>(
        "handle-unhide");
    on.operation<&Document::unhideAll, &lectern_ipc_sheet_complete_unhide_all, Nothing, Int, Axis>(
        "handle-unhide-all");
    on.operation<&Document::resize, &lectern_ipc_sheet_complete_resize, Nothing, Int, Axis, Int, Int>(
        "handle-resize");
    on.operation<&Document::autofitColumn, &lectern_ipc_sheet_complete_autofit_column, Nothing, Int, Int>(
        "handle-autofit-column");
}

} // namespace

SheetService::SheetService() : mSkeleton(lectern_ipc_sheet_skeleton_new()) {
    const Connector connector(mSkeleton, this);
    connectView(connector);
    connectFinding(connector);
    connectChanges(connector);
}

SheetService::~SheetService() {
    g_object_unref(mSkeleton);
}

void SheetService::useOffice(Office* office, const std::string& folder) {
    mOffice = office;
    mFolder = folder;
}

bool SheetService::exportOn(GDBusConnection* connection) {
    return g_dbus_interface_skeleton_export(G_DBUS_INTERFACE_SKELETON(mSkeleton), connection, kSheetPath,
                                            nullptr) != FALSE;
}

std::int32_t SheetService::open(const std::string& path, const std::string& password) {
    if (mOffice == nullptr || mDocument) {
        return MODULE_FAILED;
    }
    return guarded([&] { return SheetDocument::open(*mOffice, path, password, mFolder, mDocument); });
}

std::int32_t SheetService::setSurface(std::int32_t area, int memory, std::int32_t width,
                                      std::int32_t height) {
    std::optional<MappedSurface> surface = MappedSurface::map(memory, width, height);
    if (!surface || area < 0 || area >= sheetAreas) {
        return MODULE_BAD_ARGUMENT;
    }
    const std::int32_t result = onDocument(this, [&](SheetDocument& document) {
        return document.setSurface(static_cast<SheetArea>(area), surface->pixels(), width, height);
    });
    if (result == MODULE_OK) {
        mSurfaces[static_cast<std::size_t>(area)] = std::move(surface);
    }
    return result;
}

} // namespace lectern::engine
