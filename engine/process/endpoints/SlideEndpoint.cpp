// SPDX-License-Identifier: Apache-2.0
#include "engine/process/endpoints/SlideEndpoint.h"

#include "engine/process/endpoints/Handlers.h"
#include "engine/protocol/Inherited.h"

#include <EngineProtocol.h>

namespace lectern::engine {
namespace {

using Skeleton = LecternIpcSlide;
using Invocation = GDBusMethodInvocation;
using Document = SlideDocument;

SlideEndpoint& serviceOf(gpointer user) {
    return *static_cast<SlideEndpoint*>(user);
}

gboolean handleOpen(Skeleton* slide, Invocation* invocation, const gchar* path, gpointer user) {
    return answer(serviceOf(user), &lectern_ipc_slide_complete_open, slide, invocation,
                  serviceOf(user).open(path));
}

gboolean handleSetSurface(Skeleton* slide, Invocation* invocation, GUnixFDList* files, GVariant* memory,
                          gint width, gint height, gint pictures, gpointer user) {
    const FileDescriptor file = fileOf(files, memory);
    lectern_ipc_slide_complete_set_surface(slide, invocation, nullptr,
                                           serviceOf(user).setSurface(file.get(), width, height, pictures));
    return TRUE;
}

gboolean handleRender(Skeleton* slide, Invocation* invocation, gint index, gpointer user) {
    std::int32_t picture = 0;
    const std::int32_t result = serviceOf(user).run([&](Document& document) {
        const std::int32_t rendered = document.render(index);
        picture = document.picture();
        return rendered;
    });
    return answer(serviceOf(user), &lectern_ipc_slide_complete_render, slide, invocation, result, picture);
}

gboolean handleOutline(Skeleton* slide, Invocation* invocation, gint index, gpointer user) {
    std::vector<OutlineItem> items;
    const std::int32_t result =
        serviceOf(user).run([&](Document& document) { return document.outline(index, items); });
    std::u16string text;
    std::vector<std::uint32_t> lengths;
    std::vector<std::int32_t> levels;
    for (const OutlineItem& item : items) {
        text += item.text;
        lengths.push_back(static_cast<std::uint32_t>(item.text.size()));
        levels.push_back(item.level);
    }
    return answer(serviceOf(user), &lectern_ipc_slide_complete_outline, slide, invocation, result,
                  written(text), written(lengths), written(levels));
}

gboolean handleFind(Skeleton* slide, Invocation* invocation, GVariant* text, gint first, gint last,
                    gpointer user) {
    std::vector<SlideHits> slides;
    const std::int32_t result = serviceOf(user).run([&](Document& document) {
        return document.find(Wire<std::u16string>::read(text), first, last, slides);
    });
    std::vector<std::int32_t> infos;
    for (const SlideHits& hits : slides) {
        infos.insert(infos.end(), {hits.slide, hits.onSlide, hits.inNotes});
    }
    return answer(serviceOf(user), &lectern_ipc_slide_complete_find, slide, invocation, result,
                  written(infos));
}

gboolean handleFoundRegions(Skeleton* slide, Invocation* invocation, gpointer user) {
    std::vector<std::vector<PixelRect>> regions;
    const std::int32_t result =
        serviceOf(user).run([&](Document& document) { return document.foundRegions(regions); });
    std::vector<std::uint32_t> counts;
    std::vector<PixelRect> rectangles;
    for (const std::vector<PixelRect>& region : regions) {
        counts.push_back(static_cast<std::uint32_t>(region.size()));
        rectangles.insert(rectangles.end(), region.begin(), region.end());
    }
    return answer(serviceOf(user), &lectern_ipc_slide_complete_found_regions, slide, invocation, result,
                  written(counts), written(rectangles));
}

gboolean handleShapeArea(Skeleton* slide, Invocation* invocation, gint index, gint x, gint y, gint width,
                         gint height, gpointer user) {
    PixelRect area{};
    const std::int32_t result = serviceOf(user).run(
        [&](Document& document) { return document.shapeArea(index, x, y, width, height, area); });
    return answer(serviceOf(user), &lectern_ipc_slide_complete_shape_area, slide, invocation, result,
                  written(std::vector{area}));
}

gboolean handleTextLines(Skeleton* slide, Invocation* invocation, gint index, gint width, gint height,
                         gpointer user) {
    std::vector<SlideLine> lines;
    const std::int32_t result = serviceOf(user).run(
        [&](Document& document) { return document.textLines(index, width, height, lines); });
    std::u16string text;
    std::vector<std::uint32_t> lengths;
    std::vector<std::int32_t> paragraphs;
    std::vector<PixelRect> places;
    for (const SlideLine& line : lines) {
        text += line.text;
        lengths.push_back(static_cast<std::uint32_t>(line.text.size()));
        paragraphs.push_back(line.paragraph);
        places.insert(places.end(), line.places.begin(), line.places.end());
    }
    return answer(serviceOf(user), &lectern_ipc_slide_complete_text_lines, slide, invocation, result,
                  written(text), written(lengths), written(paragraphs), written(places));
}

gboolean handleReleaseMemory(Skeleton* slide, Invocation* invocation, gpointer user) {
    return answer(serviceOf(user), &lectern_ipc_slide_complete_release_memory, slide, invocation,
                  serviceOf(user).releaseMemory());
}

void connectHandlers(const Connector<SlideEndpoint>& on) {
    on.handler("handle-open", &handleOpen);
    on.handler("handle-open-any", &handleOpenAny<SlideEndpoint, &lectern_ipc_slide_complete_open_any>);
    on.handler("handle-set-surface", &handleSetSurface);
    on.handler("handle-render", &handleRender);
    on.operation<&Document::slideCount, &lectern_ipc_slide_complete_slide_count>("handle-slide-count");
    on.operation<&Document::dimensions, &lectern_ipc_slide_complete_dimensions>("handle-dimensions");
    on.operation<&Document::title, &lectern_ipc_slide_complete_title>("handle-title");
    on.operation<&Document::note, &lectern_ipc_slide_complete_note>("handle-note");
    on.handler("handle-outline", &handleOutline);
    on.handler("handle-set-highlight-color",
               &handleHighlightColor<SlideEndpoint, &lectern_ipc_slide_complete_set_highlight_color>);
    on.handler("handle-find", &handleFind);
    on.handler("handle-found-regions", &handleFoundRegions);
    on.operation<&Document::foundNoteOffsets, &lectern_ipc_slide_complete_found_note_offsets>(
        "handle-found-note-offsets");
    on.operation<&Document::stopFind, &lectern_ipc_slide_complete_stop_find>("handle-stop-find");
    on.operation<&Document::setFindOptions, &lectern_ipc_slide_complete_set_find_options>(
        "handle-set-find-options");
    on.operation<&Document::link, &lectern_ipc_slide_complete_link>("handle-link");
    on.handler("handle-shape-area", &handleShapeArea);
    on.handler("handle-text-lines", &handleTextLines);
    on.handler("handle-information",
               &handleInformation<SlideEndpoint, &lectern_ipc_slide_complete_information>);
    on.handler("handle-release-memory", &handleReleaseMemory);
}

} // namespace

SlideEndpoint::SlideEndpoint() : DocumentEndpoint(lectern_ipc_slide_skeleton_new(), SLIDE_PATH) {
    connectHandlers(Connector<SlideEndpoint>(skeleton(), this));
}

std::int32_t SlideEndpoint::setSurface(int memory, std::int32_t width, std::int32_t height,
                                       std::int32_t pictures) {
    std::int32_t rows = 0;
    if (__builtin_mul_overflow(height, pictures, &rows)) {
        return MODULE_BAD_ARGUMENT;
    }
    return replaceSurface(0, MappedSurface::map(memory, width, rows),
                          [&](Document& document, std::uint32_t* pixels) {
                              document.setRoom(pictures);
                              return document.setSurface(pixels, width, height);
                          });
}

std::int32_t SlideEndpoint::releaseMemory() {
    discardSurfaces();
    return run([](Document& document) { return document.releaseMemory(); });
}

} // namespace lectern::engine
