// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Pending.h"

#include <gtk/gtk.h>
#include <lectern-glib/lectern-glib.h>

#include <functional>
#include <map>
#include <vector>

namespace lectern::viewer {

// Small pictures of slides. They are made one after the other, so that other calls of the
// document come between them.
class Thumbnails {
public:
    // `onFailure` is called for the first picture of a document that cannot be made.
    explicit Thumbnails(std::function<void(const GError&)> onFailure) : mOnFailure(std::move(onFailure)) {}

    // Forgets what was wanted and made. `width` is that of a picture in pixels of the
    // screen. A null document makes none.
    void follow(LecternDocument* document, int width);

    // Puts the picture of a slide into the widget when it is made, unless forget() comes first.
    void want(GtkPicture* picture, int slide);
    void forget(GtkPicture* picture);

private:
    struct Wanted {
        GtkPicture* picture;
        int slide;
    };

    void makeNext();
    void made(GObject* source, GAsyncResult* result);

    std::function<void(const GError&)> mOnFailure;
    LecternDocument* mDocument = nullptr;
    int mWidth = 0;
    int mHeight = 0;
    std::vector<Wanted> mWanted;
    std::map<int, GLibHolder<GdkTexture>> mMade; // by slide
    int mMaking = 0;                             // the slide whose picture is being made
    bool mIsMaking = false;
    bool mHasFailed = false;
    Pending mPending;
};

} // namespace lectern::viewer
