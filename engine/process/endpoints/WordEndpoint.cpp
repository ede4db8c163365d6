// SPDX-License-Identifier: Apache-2.0
#include "engine/process/endpoints/WordEndpoint.h"

#include "engine/process/endpoints/Handlers.h"
#include "engine/protocol/Inherited.h"

#include <EngineProtocol.h>

namespace lectern::engine {
namespace {

using Skeleton = LecternIpcWord;
using Invocation = GDBusMethodInvocation;
using Document = WordDocument;

WordEndpoint& serviceOf(gpointer user) {
    return *static_cast<WordEndpoint*>(user);
}

gboolean handleOpen(Skeleton* word, Invocation* invocation, const gchar* path, const gchar* password,
                    gpointer user) {
    return answer(serviceOf(user), &lectern_ipc_word_complete_open, word, invocation,
                  serviceOf(user).open(path, std::string(password)));
}

gboolean handleSetSurface(Skeleton* word, Invocation* invocation, GUnixFDList* files, GVariant* memory,
                          gint width, gint height, gpointer user) {
    const FileDescriptor file = fileOf(files, memory);
    const std::int32_t result = serviceOf(user).setSurface(file.get(), width, height);
    const auto [painted] = serviceOf(user).afterResult();
    lectern_ipc_word_complete_set_surface(word, invocation, nullptr, result, painted);
    return TRUE;
}

// The arrays that FoundRegions returns.
struct WrittenRegions {
    explicit WrittenRegions(const std::vector<FoundRegion>& regions) {
        for (const FoundRegion& region : regions) {
            positions.push_back(region.position);
            counts.push_back(static_cast<std::uint32_t>(region.rectangles.size()));
            rectangles.insert(rectangles.end(), region.rectangles.begin(), region.rectangles.end());
        }
    }

    std::vector<std::uint32_t> positions;
    std::vector<std::uint32_t> counts;
    std::vector<PixelRect> rectangles;
};

struct ReadStretch {
    std::int32_t result; // for the place
    GVariant* value;     // floating
};
// Reads where the stretch lies, and the hits on it. `moved`: whether that is wanted.
ReadStretch readStretch(WordEndpoint& service, bool moved) {
    StretchPlace place;
    std::vector<FoundRegion> found;
    const std::int32_t result =
        moved ? service.run([&](Document& document) { return document.stretchPlace(place); }) : MODULE_FAILED;
    const bool known = result == MODULE_OK && service.run([&](Document& document) {
        return document.foundRegions(found);
    }) == MODULE_OK;
    const StretchPlace shown = result == MODULE_OK ? place : StretchPlace();
    const WrittenRegions regions(known ? found : std::vector<FoundRegion>());
    return {result, g_variant_new("(uuixb@au@au@ai)", shown.topLeft, shown.bottomRight, shown.usedRows,
                                  gint64{shown.row}, known ? TRUE : FALSE, written(regions.positions),
                                  written(regions.counts), written(regions.rectangles))};
}

gboolean handleStretchPlace(Skeleton* word, Invocation* invocation, gpointer user) {
    const ReadStretch stretch = readStretch(serviceOf(user), true);
    return answer(serviceOf(user), &lectern_ipc_word_complete_stretch_place, word, invocation, stretch.result,
                  stretch.value);
}

// Moves the stretch by Operation and returns the stretch with the same answer.
template<auto Operation, auto Complete>
gboolean handleScroll(Skeleton* word, Invocation* invocation, gint rows, gpointer user) {
    WordEndpoint& service = serviceOf(user);
    std::int32_t scrolled = 0;
    const std::int32_t result =
        service.run([&](Document& document) { return (document.*Operation)(rows, scrolled); });
    GVariant* const stretch = readStretch(service, result == MODULE_OK).value;
    return answer(service, Complete, word, invocation, result, scrolled, stretch);
}

gboolean handleShowRow(Skeleton* word, Invocation* invocation, gint64 row, gpointer user) {
    WordEndpoint& service = serviceOf(user);
    const std::int32_t result = service.run([&](Document& document) { return document.showRow(row); });
    GVariant* const stretch = readStretch(service, result == MODULE_OK).value;
    return answer(service, &lectern_ipc_word_complete_show_row, word, invocation, result, stretch);
}

gboolean handleJumpToCharacter(Skeleton* word, Invocation* invocation, gint story, guint position,
                               gpointer user) {
    WordEndpoint& service = serviceOf(user);
    const std::int32_t result =
        service.run([&](Document& document) { return document.jumpToCharacter(story, position); });
    GVariant* const stretch = readStretch(service, result == MODULE_OK).value;
    return answer(service, &lectern_ipc_word_complete_jump_to_character, word, invocation, result, stretch);
}

gboolean handleFind(Skeleton* word, Invocation* invocation, GVariant* text, guint from, guint to,
                    gpointer user) {
    std::vector<CharacterRange> hits;
    const std::int32_t result = serviceOf(user).run([&](Document& document) {
        return document.find(Wire<std::u16string>::read(text), {from, to}, hits);
    });
    std::vector<std::uint32_t> ends;
    for (const CharacterRange& hit : hits) {
        ends.insert(ends.end(), {hit.start, hit.end});
    }
    return answer(serviceOf(user), &lectern_ipc_word_complete_find, word, invocation, result, written(ends));
}

gboolean handleFoundRegions(Skeleton* word, Invocation* invocation, gpointer user) {
    std::vector<FoundRegion> regions;
    const std::int32_t result =
        serviceOf(user).run([&](Document& document) { return document.foundRegions(regions); });
    const WrittenRegions arrays(regions);
    return answer(serviceOf(user), &lectern_ipc_word_complete_found_regions, word, invocation, result,
                  written(arrays.positions), written(arrays.counts), written(arrays.rectangles));
}

gboolean handleClickInfo(Skeleton* word, Invocation* invocation, gint x, gint y, gpointer user) {
    ClickTarget target;
    const std::int32_t result =
        serviceOf(user).run([&](Document& document) { return document.clickInfo(x, y, target); });
    return answer(serviceOf(user), &lectern_ipc_word_complete_click_info, word, invocation, result,
                  written(target.type), written(target.address), target.value);
}

gboolean handleSmartZoom(Skeleton* word, Invocation* invocation, gint x, gint y, gpointer user) {
    std::vector<PixelRect> area(1);
    const std::int32_t result =
        serviceOf(user).run([&](Document& document) { return document.smartZoom(x, y, area.front()); });
    return answer(serviceOf(user), &lectern_ipc_word_complete_smart_zoom, word, invocation, result,
                  written(area));
}

gboolean handleSelection(Skeleton* word, Invocation* invocation, gpointer user) {
    CharacterRange selected;
    const std::int32_t result = serviceOf(user).run([&](Document& document) {
        selected = document.selection();
        return MODULE_OK;
    });
    return answer(serviceOf(user), &lectern_ipc_word_complete_selection, word, invocation, result,
                  selected.start, selected.end);
}

gboolean handleSelectRange(Skeleton* word, Invocation* invocation, guint start, guint end, gpointer user) {
    const std::int32_t result = serviceOf(user).run([&](Document& document) {
        return document.selectRange({start, end});
    });
    return answer(serviceOf(user), &lectern_ipc_word_complete_select_range, word, invocation, result);
}

gboolean handleScrollToRange(Skeleton* word, Invocation* invocation, guint start, guint end, gpointer user) {
    const std::int32_t result = serviceOf(user).run([&](Document& document) {
        return document.scrollToRange({start, end});
    });
    return answer(serviceOf(user), &lectern_ipc_word_complete_scroll_to_range, word, invocation, result);
}

void connectView(const Connector<WordEndpoint>& on) {
    on.handler("handle-open", &handleOpen);
    on.handler("handle-open-any", &handleOpenAny<WordEndpoint, &lectern_ipc_word_complete_open_any>);
    on.handler("handle-set-surface", &handleSetSurface);
    on.operation<&Document::setDpi, &lectern_ipc_word_complete_set_dpi>("handle-set-dpi");
    on.handler("handle-jump-to-character", &handleJumpToCharacter);
    on.operation<&Document::layoutSize, &lectern_ipc_word_complete_layout_size>("handle-layout-size");
    on.handler("handle-scroll-down",
               &handleScroll<&Document::scrollDown, &lectern_ipc_word_complete_scroll_down>);
    on.handler("handle-scroll-up", &handleScroll<&Document::scrollUp, &lectern_ipc_word_complete_scroll_up>);
    on.handler("handle-show-row", &handleShowRow);
    on.handler("handle-scroll-to-range", &handleScrollToRange);
    on.operation<&Document::characterCount, &lectern_ipc_word_complete_character_count>(
        "handle-character-count");
    on.handler("handle-stretch-place", &handleStretchPlace);
    on.handler("handle-smart-zoom", &handleSmartZoom);
}

void connectFindingAndSelecting(const Connector<WordEndpoint>& on) {
    on.operation<&Document::setHighlightColor, &lectern_ipc_word_complete_set_highlight_color>(
        "handle-set-highlight-color");
    on.handler("handle-find", &handleFind);
    on.handler("handle-found-regions", &handleFoundRegions);
    on.operation<&Document::stopFind, &lectern_ipc_word_complete_stop_find>("handle-stop-find");
    on.handler("handle-click-info", &handleClickInfo);
    on.operation<&Document::clickRegions, &lectern_ipc_word_complete_click_regions>("handle-click-regions");
    on.operation<&Document::openSecondary, &lectern_ipc_word_complete_open_secondary>(
        "handle-open-secondary");
    on.handler("handle-selection", &handleSelection);
    on.handler("handle-select-range", &handleSelectRange);
    on.operation<&Document::selectAll, &lectern_ipc_word_complete_select_all>("handle-select-all");
    on.operation<&Document::selectArea, &lectern_ipc_word_complete_select_area>("handle-select-area");
    on.operation<&Document::selectLine, &lectern_ipc_word_complete_select_line>("handle-select-line");
    on.operation<&Document::selectWord, &lectern_ipc_word_complete_select_word>("handle-select-word");
    on.operation<&Document::clearSelection, &lectern_ipc_word_complete_clear_selection>(
        "handle-clear-selection");
    on.operation<&Document::copySelection, &lectern_ipc_word_complete_copy_selection>(
        "handle-copy-selection");
}

void connectTouch(const Connector<WordEndpoint>& on) {
    on.operation<&Document::characterAt, &lectern_ipc_word_complete_character_at>("handle-character-at");
    on.operation<&Document::textSize, &lectern_ipc_word_complete_text_size>("handle-text-size");
    on.operation<&Document::tapArea, &lectern_ipc_word_complete_tap_area>("handle-tap-area");
    on.operation<&Document::textLines, &lectern_ipc_word_complete_text_lines>("handle-text-lines");
    on.operation<&Document::outline, &lectern_ipc_word_complete_outline>("handle-outline");
    on.operation<&Document::setFindOptions, &lectern_ipc_word_complete_set_find_options>(
        "handle-set-find-options");
    on.operation<&Document::moveSelectionEnd, &lectern_ipc_word_complete_move_selection_end>(
        "handle-move-selection-end");
    on.operation<&Document::selectionRegions, &lectern_ipc_word_complete_selection_regions>(
        "handle-selection-regions");
}

void connectProperties(const Connector<WordEndpoint>& on) {
    on.operation<&Document::wordCount, &lectern_ipc_word_complete_word_count>("handle-word-count");
    on.handler("handle-information",
               &handleInformation<WordEndpoint, &lectern_ipc_word_complete_information>);
}

} // namespace

WordEndpoint::WordEndpoint() : DocumentEndpoint(lectern_ipc_word_skeleton_new(), WORD_PATH) {
    const Connector<WordEndpoint> connector(skeleton(), this);
    connectView(connector);
    connectFindingAndSelecting(connector);
    connectTouch(connector);
    connectProperties(connector);
}

std::int32_t WordEndpoint::setSurface(int memory, std::int32_t width, std::int32_t height) {
    return replaceSurface(0, MappedSurface::map(memory, width, height),
                          [&](Document& document, std::uint32_t* pixels) {
                              return document.setSurface(pixels, width, height);
                          });
}

} // namespace lectern::engine
