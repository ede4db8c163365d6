// SPDX-License-Identifier: Apache-2.0
#include "engine/process/WordService.h"

#include "engine/protocol/FileDescriptor.h"
#include "engine/protocol/Guarded.h"
#include "engine/protocol/Inherited.h"
#include "modules/ModuleResults.h"

#include <EngineProtocol.h>
#include <gio/gio.h>
#include <gio/gunixfdlist.h>

#include <cstring>
#include <utility>
#include <vector>

namespace lectern::engine {
namespace {

using Invocation = GDBusMethodInvocation;

WordService& serviceOf(gpointer user) {
    return *static_cast<WordService*>(user);
}

// Runs an operation on the open document.
template<class Operation>
std::int32_t onDocument(WordService& service, Operation operation) {
    WordDocument* document = service.document();
    return document == nullptr ? MODULE_FAILED : guarded([&] { return operation(*document); });
}

template<class Element>
GVariant* arrayOf(const GVariantType* type, const std::vector<Element>& elements) {
    return g_variant_new_fixed_array(type, elements.data(), elements.size(), sizeof(Element));
}

GVariant* textOf(const std::u16string& text) {
    return g_variant_new_fixed_array(G_VARIANT_TYPE_UINT16, text.data(), text.size(), sizeof(char16_t));
}

std::u16string textFrom(GVariant* array) {
    gsize count = 0;
    const void* units = g_variant_get_fixed_array(array, &count, sizeof(char16_t));
    std::u16string text(count, u'\0');
    if (count > 0) {
        std::memcpy(text.data(), units, count * sizeof(char16_t));
    }
    return text;
}

GVariant* rectanglesOf(const std::vector<PixelRect>& rectangles) {
    std::vector<std::int32_t> numbers;
    for (const PixelRect& rectangle : rectangles) {
        numbers.insert(numbers.end(), {rectangle.x, rectangle.y, rectangle.width, rectangle.height});
    }
    return arrayOf(G_VARIANT_TYPE_INT32, numbers);
}

// One handler for every operation without inputs that gives one number.
template<auto Operation, auto Complete, class Number>
gboolean handleNumber(LecternIpcWord* word, Invocation* invocation, gpointer user) {
    Number value = 0;
    const std::int32_t result =
        onDocument(serviceOf(user), [&](WordDocument& document) { return (document.*Operation)(value); });
    Complete(word, invocation, result, serviceOf(user).takePainted(), value);
    return TRUE;
}

template<auto Operation, auto Complete>
gboolean handleText(LecternIpcWord* word, Invocation* invocation, gpointer user) {
    std::u16string text;
    const std::int32_t result =
        onDocument(serviceOf(user), [&](WordDocument& document) { return (document.*Operation)(text); });
    Complete(word, invocation, result, serviceOf(user).takePainted(), textOf(text));
    return TRUE;
}

template<auto Operation, auto Complete>
gboolean handleScroll(LecternIpcWord* word, Invocation* invocation, gint rows, gpointer user) {
    std::int32_t scrolled = 0;
    const std::int32_t result = onDocument(
        serviceOf(user), [&](WordDocument& document) { return (document.*Operation)(rows, scrolled); });
    Complete(word, invocation, result, serviceOf(user).takePainted(), scrolled);
    return TRUE;
}

gboolean handleOpen(LecternIpcWord* word, Invocation* invocation, const gchar* path, const gchar* password,
                    gpointer user) {
    const std::int32_t result = serviceOf(user).open(path, password);
    lectern_ipc_word_complete_open(word, invocation, result, serviceOf(user).takePainted());
    return TRUE;
}

gboolean handleSetSurface(LecternIpcWord* word, Invocation* invocation, GUnixFDList* files, GVariant* memory,
                          gint width, gint height, gpointer user) {
    const FileDescriptor file(
        files == nullptr ? -1 : g_unix_fd_list_get(files, g_variant_get_handle(memory), nullptr));
    const std::int32_t result = serviceOf(user).setSurface(file.get(), width, height);
    lectern_ipc_word_complete_set_surface(word, invocation, nullptr, result, serviceOf(user).takePainted());
    return TRUE;
}

gboolean handleSetDpi(LecternIpcWord* word, Invocation* invocation, gint dpi, gpointer user) {
    const std::int32_t result =
        onDocument(serviceOf(user), [&](WordDocument& document) { return document.setDpi(dpi); });
    lectern_ipc_word_complete_set_dpi(word, invocation, result, serviceOf(user).takePainted());
    return TRUE;
}

gboolean handleJump(LecternIpcWord* word, Invocation* invocation, gint story, guint position, gpointer user) {
    const std::int32_t result = onDocument(
        serviceOf(user), [&](WordDocument& document) { return document.jumpToCharacter(story, position); });
    lectern_ipc_word_complete_jump_to_character(word, invocation, result, serviceOf(user).takePainted());
    return TRUE;
}

template<auto Operation, auto Complete>
gboolean handlePlain(LecternIpcWord* word, Invocation* invocation, gpointer user) {
    const std::int32_t result =
        onDocument(serviceOf(user), [](WordDocument& document) { return (document.*Operation)(); });
    Complete(word, invocation, result, serviceOf(user).takePainted());
    return TRUE;
}

template<auto Operation, auto Complete>
gboolean handlePoint(LecternIpcWord* word, Invocation* invocation, gint x, gint y, gpointer user) {
    const std::int32_t result =
        onDocument(serviceOf(user), [&](WordDocument& document) { return (document.*Operation)(x, y); });
    Complete(word, invocation, result, serviceOf(user).takePainted());
    return TRUE;
}

gboolean handleLayoutSize(LecternIpcWord* word, Invocation* invocation, gpointer user) {
    std::int32_t width = 0;
    std::int32_t height = 0;
    const std::int32_t result = onDocument(
        serviceOf(user), [&](WordDocument& document) { return document.layoutSize(width, height); });
    lectern_ipc_word_complete_layout_size(word, invocation, result, serviceOf(user).takePainted(), width,
                                          height);
    return TRUE;
}

gboolean handleHighlightColor(LecternIpcWord* word, Invocation* invocation, guchar red, guchar green,
                              guchar blue, gpointer user) {
    const std::int32_t result = onDocument(serviceOf(user), [&](WordDocument& document) {
        return document.setHighlightColor(red, green, blue);
    });
    lectern_ipc_word_complete_set_highlight_color(word, invocation, result, serviceOf(user).takePainted());
    return TRUE;
}

gboolean handleFind(LecternIpcWord* word, Invocation* invocation, GVariant* text, guint from, guint to,
                    gpointer user) {
    std::vector<CharacterRange> hits;
    const std::int32_t result = onDocument(serviceOf(user), [&](WordDocument& document) {
        return document.find(textFrom(text), {from, to}, hits);
    });
    std::vector<std::uint32_t> ends;
    for (const CharacterRange& hit : hits) {
        ends.insert(ends.end(), {hit.start, hit.end});
    }
    lectern_ipc_word_complete_find(word, invocation, result, serviceOf(user).takePainted(),
                                   arrayOf(G_VARIANT_TYPE_UINT32, ends));
    return TRUE;
}

gboolean handleFoundRegions(LecternIpcWord* word, Invocation* invocation, gpointer user) {
    std::vector<FoundRegion> regions;
    const std::int32_t result =
        onDocument(serviceOf(user), [&](WordDocument& document) { return document.foundRegions(regions); });
    std::vector<std::uint32_t> positions;
    std::vector<std::uint32_t> counts;
    std::vector<PixelRect> rectangles;
    for (const FoundRegion& region : regions) {
        positions.push_back(region.position);
        counts.push_back(static_cast<std::uint32_t>(region.rectangles.size()));
        rectangles.insert(rectangles.end(), region.rectangles.begin(), region.rectangles.end());
    }
    lectern_ipc_word_complete_found_regions(word, invocation, result, serviceOf(user).takePainted(),
                                            arrayOf(G_VARIANT_TYPE_UINT32, positions),
                                            arrayOf(G_VARIANT_TYPE_UINT32, counts), rectanglesOf(rectangles));
    return TRUE;
}

gboolean handleClickInfo(LecternIpcWord* word, Invocation* invocation, gint x, gint y, gpointer user) {
    ClickTarget target;
    const std::int32_t result =
        onDocument(serviceOf(user), [&](WordDocument& document) { return document.clickInfo(x, y, target); });
    lectern_ipc_word_complete_click_info(word, invocation, result, serviceOf(user).takePainted(), target.type,
                                         textOf(target.address), target.value);
    return TRUE;
}

gboolean handleClickRegions(LecternIpcWord* word, Invocation* invocation, gpointer user) {
    std::vector<PixelRect> regions;
    const std::int32_t result =
        onDocument(serviceOf(user), [&](WordDocument& document) { return document.clickRegions(regions); });
    lectern_ipc_word_complete_click_regions(word, invocation, result, serviceOf(user).takePainted(),
                                            rectanglesOf(regions));
    return TRUE;
}

gboolean handleOpenSecondary(LecternIpcWord* word, Invocation* invocation, gint type, guint number,
                             gint height, gpointer user) {
    const std::int32_t result = onDocument(serviceOf(user), [&](WordDocument& document) {
        return document.openSecondary(type, number, height);
    });
    lectern_ipc_word_complete_open_secondary(word, invocation, result, serviceOf(user).takePainted());
    return TRUE;
}

gboolean handleSmartZoom(LecternIpcWord* word, Invocation* invocation, gint x, gint y, gpointer user) {
    PixelRect area;
    const std::int32_t result =
        onDocument(serviceOf(user), [&](WordDocument& document) { return document.smartZoom(x, y, area); });
    lectern_ipc_word_complete_smart_zoom(word, invocation, result, serviceOf(user).takePainted(),
                                         rectanglesOf({area}));
    return TRUE;
}

gboolean handleSelectArea(LecternIpcWord* word, Invocation* invocation, gint left, gint top, gint right,
                          gint bottom, gpointer user) {
    const std::int32_t result = onDocument(serviceOf(user), [&](WordDocument& document) {
        return document.selectArea(left, top, right, bottom);
    });
    lectern_ipc_word_complete_select_area(word, invocation, result, serviceOf(user).takePainted());
    return TRUE;
}

gboolean handleScrollToRange(LecternIpcWord* word, Invocation* invocation, guint start, guint end,
                             gpointer user) {
    const std::int32_t result = onDocument(serviceOf(user), [&](WordDocument& document) {
        return document.scrollToRange({start, end});
    });
    lectern_ipc_word_complete_scroll_to_range(word, invocation, result, serviceOf(user).takePainted());
    return TRUE;
}

void connectHandlers(LecternIpcWord* word, WordService* service) {
    const auto connect = [&](const char* signal, auto* handler) {
        g_signal_connect(word, signal, G_CALLBACK(handler), service);
    };
    using Document = WordDocument;
    connect("handle-open", &handleOpen);
    connect("handle-set-surface", &handleSetSurface);
    connect("handle-set-dpi", &handleSetDpi);
    connect("handle-jump-to-character", &handleJump);
    connect("handle-layout-size", &handleLayoutSize);
    connect("handle-scroll-down",
            &handleScroll<&Document::scrollDown, &lectern_ipc_word_complete_scroll_down>);
    connect("handle-scroll-up", &handleScroll<&Document::scrollUp, &lectern_ipc_word_complete_scroll_up>);
    connect(
        "handle-character-count",
        &handleNumber<&Document::characterCount, &lectern_ipc_word_complete_character_count, std::uint32_t>);
    connect("handle-top-left-character",
            &handleNumber<&Document::topLeftCharacter, &lectern_ipc_word_complete_top_left_character,
                          std::uint32_t>);
    connect("handle-bottom-right-character",
            &handleNumber<&Document::bottomRightCharacter, &lectern_ipc_word_complete_bottom_right_character,
                          std::uint32_t>);
    connect("handle-vertical-last-used-pixel",
            &handleNumber<&Document::verticalLastUsedPixel,
                          &lectern_ipc_word_complete_vertical_last_used_pixel, std::int32_t>);
    connect("handle-word-count",
            &handleNumber<&Document::wordCount, &lectern_ipc_word_complete_word_count, std::int32_t>);
    connect("handle-creation-date",
            &handleNumber<&Document::creationDate, &lectern_ipc_word_complete_creation_date, std::int64_t>);
    connect(
        "handle-last-saved-date",
        &handleNumber<&Document::lastSavedDate, &lectern_ipc_word_complete_last_saved_date, std::int64_t>);
    connect("handle-set-highlight-color", &handleHighlightColor);
    connect("handle-find", &handleFind);
    connect("handle-found-regions", &handleFoundRegions);
    connect("handle-stop-find", &handlePlain<&Document::stopFind, &lectern_ipc_word_complete_stop_find>);
    connect("handle-click-info", &handleClickInfo);
    connect("handle-click-regions", &handleClickRegions);
    connect("handle-open-secondary", &handleOpenSecondary);
    connect("handle-smart-zoom", &handleSmartZoom);
    connect("handle-select-all", &handlePlain<&Document::selectAll, &lectern_ipc_word_complete_select_all>);
    connect("handle-select-area", &handleSelectArea);
    connect("handle-select-line",
            &handlePoint<&Document::selectLine, &lectern_ipc_word_complete_select_line>);
    connect("handle-select-word",
            &handlePoint<&Document::selectWord, &lectern_ipc_word_complete_select_word>);
    connect("handle-clear-selection",
            &handlePlain<&Document::clearSelection, &lectern_ipc_word_complete_clear_selection>);
    connect("handle-copy-selection",
            &handleText<&Document::copySelection, &lectern_ipc_word_complete_copy_selection>);
    connect("handle-scroll-to-range", &handleScrollToRange);
    connect("handle-name", &handleText<&Document::name, &lectern_ipc_word_complete_name>);
    connect("handle-author", &handleText<&Document::author, &lectern_ipc_word_complete_author>);
    connect("handle-description",
            &handleText<&Document::description, &lectern_ipc_word_complete_description>);
}

} // namespace

WordService::WordService() : mSkeleton(lectern_ipc_word_skeleton_new()) {
    connectHandlers(mSkeleton, this);
}

WordService::~WordService() {
    g_object_unref(mSkeleton);
}

void WordService::useOffice(Office* office, const std::string& folder) {
    mOffice = office;
    mFolder = folder;
}

bool WordService::exportOn(GDBusConnection* connection) {
    return g_dbus_interface_skeleton_export(G_DBUS_INTERFACE_SKELETON(mSkeleton), connection, kWordPath,
                                            nullptr) != FALSE;
}

std::int32_t WordService::open(const std::string& path, const std::string& password) {
    if (mOffice == nullptr || mDocument) {
        return MODULE_FAILED;
    }
    return guarded([&] { return WordDocument::open(*mOffice, path, password, mFolder, mDocument); });
}

std::int32_t WordService::setSurface(int memory, std::int32_t width, std::int32_t height) {
    std::optional<MappedSurface> surface = MappedSurface::map(memory, width, height);
    if (!surface) {
        return MODULE_BAD_ARGUMENT;
    }
    const std::int32_t result = onDocument(
        *this, [&](WordDocument& document) { return document.setSurface(surface->pixels(), width, height); });
    if (result == MODULE_OK) {
        mSurface = std::move(surface);
    }
    return result;
}

} // namespace lectern::engine
