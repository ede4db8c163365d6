// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/Thumbnails.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lectern::viewer {

namespace {

constexpr size_t MOST_KEPT = 100; // about 15 MiB at a scale of 1
constexpr int BYTES_PER_PIXEL = 4;
// 0xAARRGGBB in the byte order of this machine.
constexpr GdkMemoryFormat FORMAT =
    G_BYTE_ORDER == G_LITTLE_ENDIAN ? GDK_MEMORY_B8G8R8A8_PREMULTIPLIED : GDK_MEMORY_A8R8G8B8_PREMULTIPLIED;

// The size of slides is known in whole pixels only, so a line of black may be left beside them.
GdkTexture* withoutEdge(GBytes* pixels, int width, int height) {
    const gsize stride = static_cast<gsize>(width) * BYTES_PER_PIXEL;
    const gsize length = stride * static_cast<gsize>(height - 2) - 2 * BYTES_PER_PIXEL;
    GBytes* inner = g_bytes_new_from_bytes(pixels, stride + BYTES_PER_PIXEL, length);
    GdkTexture* texture = gdk_memory_texture_new(width - 2, height - 2, FORMAT, inner, stride);
    g_bytes_unref(inner);
    return texture;
}

} // namespace

void Thumbnails::follow(LecternDocument* document, int width) {
    mPending.giveUp();
    mWanted.clear();
    mMade.clear();
    mIsMaking = false;
    mHasFailed = false;
    mDocument = document;
    if (document != nullptr) {
        const auto slideWidth = static_cast<double>(lectern_document_get_document_width(document));
        const auto slideHeight = static_cast<double>(lectern_document_get_document_height(document));
        mWidth = width;
        mHeight = std::max(3, static_cast<int>(std::lround(width * slideHeight / std::max(1.0, slideWidth))));
    }
}

void Thumbnails::want(GtkPicture* picture, int slide) {
    if (const auto made = mMade.find(slide); made != mMade.end()) {
        gtk_picture_set_paintable(picture, GDK_PAINTABLE(made->second.get()));
        return;
    }
    // An empty picture holds the place of the one to come.
    const GLibHolder<GdkPaintable> empty(gdk_paintable_new_empty(mWidth, mHeight));
    gtk_picture_set_paintable(picture, empty.get());
    mWanted.push_back({picture, slide});
    makeNext();
}

void Thumbnails::forget(GtkPicture* picture) {
    std::erase_if(mWanted, [=](const Wanted& wanted) { return wanted.picture == picture; });
}

void Thumbnails::makeNext() {
    if (mIsMaking || mDocument == nullptr || mWanted.empty()) {
        return;
    }
    mIsMaking = true;
    mMaking = mWanted.front().slide;
    lectern_document_get_thumbnail_async(mDocument, mMaking, mWidth, mHeight, mPending.get(),
                                         asyncDone<&Thumbnails::made>, this);
}

void Thumbnails::made(GObject* source, GAsyncResult* result) {
    mIsMaking = false;
    GLibHolder<GError> error;
    GBytes* pixels = lectern_document_get_thumbnail_finish(LECTERN_DOCUMENT(source), result, out(error));
    if (pixels != nullptr) {
        if (mMade.size() >= MOST_KEPT) {
            mMade.clear();
        }
        GLibHolder<GdkTexture>& texture = mMade[mMaking];
        texture.reset(withoutEdge(pixels, mWidth, mHeight));
        g_bytes_unref(pixels);
        for (const Wanted& wanted : mWanted) {
            if (wanted.slide == mMaking) {
                gtk_picture_set_paintable(wanted.picture, GDK_PAINTABLE(texture.get()));
            }
        }
    } else if (!std::exchange(mHasFailed, true)) {
        mOnFailure(*error);
    }
    std::erase_if(mWanted, [this](const Wanted& wanted) { return wanted.slide == mMaking; });
    makeNext();
}

} // namespace lectern::viewer
