// SPDX-License-Identifier: Apache-2.0
#include "engine/process/SlideService.h"

#include "engine/protocol/FileDescriptor.h"
#include "engine/protocol/Guarded.h"
#include "engine/protocol/Inherited.h"
#include "modules/ModuleResults.h"

#include <EngineProtocol.h>
#include <gio/gio.h>
#include <gio/gunixfdlist.h>

#include <utility>

namespace lectern::engine {
namespace {

using Invocation = GDBusMethodInvocation;
using Document = SlideDocument;

SlideService& serviceOf(gpointer user) {
    return *static_cast<SlideService*>(user);
}

// Runs an operation on the open presentation.
template<class Operation>
std::int32_t onDocument(gpointer user, Operation operation) {
    Document* document = serviceOf(user).document();
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
    const auto* first = static_cast<const char16_t*>(units);
    return {first, first + count};
}

// For operations that only do something.
template<auto Operation, auto Complete>
gboolean handlePlain(LecternIpcSlide* slide, Invocation* invocation, gpointer user) {
    Complete(slide, invocation, onDocument(user, [](Document& document) { return (document.*Operation)(); }));
    return TRUE;
}

// For operations that give the text of a slide.
template<auto Operation, auto Complete>
gboolean handleText(LecternIpcSlide* slide, Invocation* invocation, gint index, gpointer user) {
    std::u16string text;
    const std::int32_t result =
        onDocument(user, [&](Document& document) { return (document.*Operation)(index, text); });
    Complete(slide, invocation, result, textOf(text));
    return TRUE;
}

gboolean handleOpen(LecternIpcSlide* slide, Invocation* invocation, const gchar* path, gpointer user) {
    lectern_ipc_slide_complete_open(slide, invocation, serviceOf(user).open(path));
    return TRUE;
}

gboolean handleSetSurface(LecternIpcSlide* slide, Invocation* invocation, GUnixFDList* files,
                          GVariant* memory, gint width, gint height, gint pictures, gpointer user) {
    const FileDescriptor file(
        files == nullptr ? -1 : g_unix_fd_list_get(files, g_variant_get_handle(memory), nullptr));
    lectern_ipc_slide_complete_set_surface(slide, invocation, nullptr,
                                           serviceOf(user).setSurface(file.get(), width, height, pictures));
    return TRUE;
}

gboolean handleRender(LecternIpcSlide* slide, Invocation* invocation, gint index, gpointer user) {
    std::int32_t picture = 0;
    const std::int32_t result = onDocument(user, [&](Document& document) {
        const std::int32_t rendered = document.render(index);
        picture = document.picture();
        return rendered;
    });
    lectern_ipc_slide_complete_render(slide, invocation, result, picture);
    serviceOf(user).prepareWhenIdle();
    return TRUE;
}

gboolean handleSlideCount(LecternIpcSlide* slide, Invocation* invocation, gpointer user) {
    std::int32_t count = 0;
    const std::int32_t result =
        onDocument(user, [&](Document& document) { return document.slideCount(count); });
    lectern_ipc_slide_complete_slide_count(slide, invocation, result, count);
    return TRUE;
}

gboolean handleDimensions(LecternIpcSlide* slide, Invocation* invocation, gint index, gpointer user) {
    std::int32_t width = 0;
    std::int32_t height = 0;
    const std::int32_t result =
        onDocument(user, [&](Document& document) { return document.dimensions(index, width, height); });
    lectern_ipc_slide_complete_dimensions(slide, invocation, result, width, height);
    return TRUE;
}

gboolean handleOutline(LecternIpcSlide* slide, Invocation* invocation, gint index, gpointer user) {
    std::vector<OutlineItem> items;
    const std::int32_t result =
        onDocument(user, [&](Document& document) { return document.outline(index, items); });
    std::u16string text;
    std::vector<std::uint32_t> lengths;
    std::vector<std::int32_t> levels;
    for (const OutlineItem& item : items) {
        text += item.text;
        lengths.push_back(static_cast<std::uint32_t>(item.text.size()));
        levels.push_back(item.level);
    }
    lectern_ipc_slide_complete_outline(slide, invocation, result, textOf(text),
                                       arrayOf(G_VARIANT_TYPE_UINT32, lengths),
                                       arrayOf(G_VARIANT_TYPE_INT32, levels));
    return TRUE;
}

gboolean handleSetHighlightColor(LecternIpcSlide* slide, Invocation* invocation, guchar red, guchar green,
                                 guchar blue, gpointer user) {
    lectern_ipc_slide_complete_set_highlight_color(slide, invocation,
                                                   onDocument(user, [&](Document& document) {
                                                       return document.setHighlightColour({red, green, blue});
                                                   }));
    return TRUE;
}

gboolean handleFind(LecternIpcSlide* slide, Invocation* invocation, GVariant* text, gint first, gint last,
                    gpointer user) {
    std::vector<SlideHits> slides;
    const std::int32_t result = onDocument(
        user, [&](Document& document) { return document.find(textFrom(text), first, last, slides); });
    std::vector<std::int32_t> infos;
    for (const SlideHits& hits : slides) {
        infos.insert(infos.end(), {hits.slide, hits.onSlide, hits.inNotes});
    }
    lectern_ipc_slide_complete_find(slide, invocation, result, arrayOf(G_VARIANT_TYPE_INT32, infos));
    return TRUE;
}

gboolean handleFoundRegions(LecternIpcSlide* slide, Invocation* invocation, gpointer user) {
    std::vector<std::vector<PixelRect>> regions;
    const std::int32_t result =
        onDocument(user, [&](Document& document) { return document.foundRegions(regions); });
    std::vector<std::uint32_t> counts;
    std::vector<std::int32_t> numbers;
    for (const std::vector<PixelRect>& region : regions) {
        counts.push_back(static_cast<std::uint32_t>(region.size()));
        for (const PixelRect& rectangle : region) {
            numbers.insert(numbers.end(), {rectangle.x, rectangle.y, rectangle.width, rectangle.height});
        }
    }
    lectern_ipc_slide_complete_found_regions(slide, invocation, result,
                                             arrayOf(G_VARIANT_TYPE_UINT32, counts),
                                             arrayOf(G_VARIANT_TYPE_INT32, numbers));
    return TRUE;
}

gboolean handleFoundNoteOffsets(LecternIpcSlide* slide, Invocation* invocation, gint index, gpointer user) {
    std::vector<std::int32_t> offsets;
    const std::int32_t result =
        onDocument(user, [&](Document& document) { return document.foundNoteOffsets(index, offsets); });
    lectern_ipc_slide_complete_found_note_offsets(slide, invocation, result,
                                                  arrayOf(G_VARIANT_TYPE_INT32, offsets));
    return TRUE;
}

gboolean handleReleaseMemory(LecternIpcSlide* slide, Invocation* invocation, gpointer user) {
    lectern_ipc_slide_complete_release_memory(slide, invocation, serviceOf(user).releaseMemory());
    return TRUE;
}

gboolean handleInformation(LecternIpcSlide* slide, Invocation* invocation, gpointer user) {
    DocumentInformation information;
    const std::int32_t result =
        onDocument(user, [&](Document& document) { return document.information(information); });
    lectern_ipc_slide_complete_information(slide, invocation, result, textOf(information.name),
                                           textOf(information.author), textOf(information.description),
                                           information.created, information.lastSaved);
    return TRUE;
}

void connectHandlers(LecternIpcSlide* slide, SlideService* service) {
    const auto connect = [&](const char* signal, auto* handler) {
        g_signal_connect(slide, signal, G_CALLBACK(handler), service);
    };
    connect("handle-open", &handleOpen);
    connect("handle-set-surface", &handleSetSurface);
    connect("handle-render", &handleRender);
    connect("handle-slide-count", &handleSlideCount);
    connect("handle-dimensions", &handleDimensions);
    connect("handle-title", &handleText<&Document::title, &lectern_ipc_slide_complete_title>);
    connect("handle-note", &handleText<&Document::note, &lectern_ipc_slide_complete_note>);
    connect("handle-outline", &handleOutline);
    connect("handle-set-highlight-color", &handleSetHighlightColor);
    connect("handle-find", &handleFind);
    connect("handle-found-regions", &handleFoundRegions);
    connect("handle-found-note-offsets", &handleFoundNoteOffsets);
    connect("handle-stop-find", &handlePlain<&Document::stopFind, &lectern_ipc_slide_complete_stop_find>);
    connect("handle-information", &handleInformation);
    connect("handle-release-memory", &handleReleaseMemory);
}

} // namespace

SlideService::SlideService() : mSkeleton(lectern_ipc_slide_skeleton_new()) {
    connectHandlers(mSkeleton, this);
}

SlideService::~SlideService() {
    g_clear_handle_id(&mIdle, g_source_remove);
    g_object_unref(mSkeleton);
}

void SlideService::useOffice(Office* office, const std::string& folder) {
    mOffice = office;
    mFolder = folder;
}

bool SlideService::exportOn(GDBusConnection* connection) {
    return g_dbus_interface_skeleton_export(G_DBUS_INTERFACE_SKELETON(mSkeleton), connection, kSlidePath,
                                            nullptr) != FALSE;
}

std::int32_t SlideService::open(const std::string& path) {
    if (mOffice == nullptr || mDocument) {
        return MODULE_FAILED;
    }
    return guarded([&] { return SlideDocument::open(*mOffice, path, mFolder, mDocument); });
}

std::int32_t SlideService::setSurface(int memory, std::int32_t width, std::int32_t height,
                                      std::int32_t pictures) {
    std::int32_t rows = 0;
    if (__builtin_mul_overflow(height, pictures, &rows)) {
        return MODULE_BAD_ARGUMENT;
    }
    std::optional<MappedSurface> surface = MappedSurface::map(memory, width, rows);
    if (!surface) {
        return MODULE_BAD_ARGUMENT;
    }
    const std::int32_t result = onDocument(this, [&](SlideDocument& document) {
        document.setRoom(pictures);
        return document.setSurface(surface->pixels(), width, height);
    });
    if (result == MODULE_OK) {
        mSurface = std::move(surface);
    }
    return result;
}

void SlideService::prepareWhenIdle() {
    // Milliseconds; until then the service copies the picture, which takes both
    // processors of a small machine.
    constexpr guint kPause = 1;
    constexpr auto prepare = [](gpointer user) -> gboolean {
        SlideService& service = serviceOf(user);
        bool more = service.mDocument != nullptr;
        while (more && g_main_context_pending(nullptr) == FALSE) {
            more = service.mDocument->prepareNext();
        }
        service.mIdle = more ? service.mIdle : 0;
        return more ? G_SOURCE_CONTINUE : G_SOURCE_REMOVE;
    };
    if (mIdle == 0) {
        mIdle = g_timeout_add_full(G_PRIORITY_DEFAULT_IDLE, kPause, prepare, this, nullptr);
    }
}

std::int32_t SlideService::releaseMemory() {
    if (mSurface) {
        mSurface->discard();
    }
    return onDocument(this, [](SlideDocument& document) { return document.releaseMemory(); });
}

} // namespace lectern::engine
