// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/gtk4/LatestCall.h"
#include "client/gtk4/ViewContext.h"

namespace lectern::gtk4 {

// Zooms the document, in steps or to what fits.
class ViewZoom {
public:
    static constexpr double STEP = 1.25; // of keys and menus

    explicit ViewZoom(ViewContext& context) : mContext(context) {}

    // About a point, or the middle of the view. Steps that come while a zoom is under way
    // add up.
    void by(double factor, Point about = MIDDLE);
    void toFit();
    void toWidth();
    void reset();

private:
    static constexpr Point MIDDLE{-1, -1};
    struct Zoom {
        double zoom;
        Point about;
    };

    void to(double zoom, Point about);
    void begin();
    void finish(GObject* source, GAsyncResult* result);

    ViewContext& mContext;
    LatestCall<Zoom> mZoom;
    double mGoal = 0; // of the zoom under way
    Pending mPending;
};

} // namespace lectern::gtk4
