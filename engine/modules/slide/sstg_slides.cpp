// SPDX-License-Identifier: Apache-2.0
// The slides, their measurements and their painting.

#include "engine/modules/slide/SlideHandle.h"

#include <algorithm>
#include <utility>

using namespace lectern::engine;

namespace {

// Most memory for the slides painted last, which the engine keeps.
constexpr std::int64_t MOST_KEPT = std::int64_t{32} << 20; // bytes
constexpr std::int64_t MOST_PICTURES = 64;

std::int32_t picturesOf(std::int32_t width, std::int32_t height) {
    const std::int64_t bytes = std::int64_t{width} * height * 4;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(MOST_KEPT / bytes, 1, MOST_PICTURES));
}

} // namespace

std::int32_t SlideHandle::giveSurface(std::int32_t width, std::int32_t height) {
    const std::int32_t number = picturesOf(width, height);
    std::unique_ptr<SharedSurface> offered;
    const std::int32_t result =
        offerSurface(*this, width, height * number, offered, &lectern_ipc_slide_call_set_surface_sync,
                     [&](GVariant* memory, GUnixFDList* files, gint* answer, GError** error) {
                         return lectern_ipc_slide_call_set_surface_sync(
                             engine->slide(), memory, width, height, number, G_DBUS_CALL_FLAGS_NONE, G_MAXINT,
                             files, answer, nullptr, nullptr, error);
                     });
    if (result == MODULE_OK) {
        surface = std::move(offered);
        pictures = number;
    }
    return result;
}

int32_t sstg_get_slide_count(void* doc, int32_t* count) {
    if (count == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onSlideshow(doc, [&](SlideHandle& handle) {
        gint slides = 0;
        const std::int32_t result =
            callEngine(handle, &lectern_ipc_slide_call_slide_count_sync, std::tuple<>(), &slides);
        const std::int32_t checked = checkedCount(result, slides, 0, MOST_PARTS);
        if (checked == MODULE_OK) {
            *count = slides;
        }
        return checked;
    });
}

int32_t sstg_get_slide_dimensions(void* doc, int32_t slide, int32_t* width, int32_t* height) {
    if (width == nullptr || height == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onSlideshow(doc, [&](SlideHandle& handle) -> std::int32_t {
        gint across = 0;
        gint down = 0;
        const std::int32_t result = callEngine(handle, &lectern_ipc_slide_call_dimensions_sync,
                                               std::tuple(gint{slide}), &across, &down);
        if (result != MODULE_OK) {
            return result;
        }
        if (std::min(across, down) < 1 || std::max(across, down) > MOST_POINTS) {
            return MODULE_FAILED;
        }
        *width = across;
        *height = down;
        return MODULE_OK;
    });
}

int32_t sstg_render_slide(void* doc, int32_t slide, int32_t /*flags*/, uint32_t* pixels, int32_t width,
                          int32_t height) {
    if (pixels == nullptr || width < 1 || height < 1) {
        return MODULE_BAD_ARGUMENT;
    }
    return onSlideshow(doc, [&](SlideHandle& handle) -> std::int32_t {
        if (std::int64_t{width} * height > SharedSurface::MAXIMUM_PIXELS) {
            return MODULE_TOO_LARGE;
        }
        std::int32_t result = MODULE_OK;
        if (!handle.surface || handle.surface->width() != width ||
            handle.surface->height() / handle.pictures != height) {
            result = handle.giveSurface(width, height);
            if (result == MODULE_OK) {
                handle.state.rendered.reset();
            }
        }
        gint picture = 0;
        if (result == MODULE_OK) {
            result =
                callEngine(handle, &lectern_ipc_slide_call_render_sync, std::tuple(gint{slide}), &picture);
        }
        if (result != MODULE_OK) {
            return result;
        }
        handle.state.rendered = slide;
        if (picture < 0 || picture >= handle.pictures) {
            return MODULE_FAILED;
        }
        const std::size_t pixelCount = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
        handle.surface->copyTo(pixels, static_cast<std::size_t>(picture) * pixelCount, pixelCount);
        return MODULE_OK;
    });
}
