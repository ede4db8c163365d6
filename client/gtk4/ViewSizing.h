// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/gtk4/LatestCall.h"
#include "client/gtk4/ViewContext.h"

namespace lectern::gtk4 {

// Keeps the document's view as large as the widget, in device pixels. Of the sizes that
// come while a window is being resized only the last ones reach the service.
class ViewSizing {
public:
    explicit ViewSizing(ViewContext& context);

    // Gives a document its size and the screen's dots per inch before it is opened.
    void prepare();
    // The widget has another size or scale, or its document has been opened.
    void fit();
    void reset();

private:
    void resize();
    void resized(GObject* source, GAsyncResult* result);

    ViewContext& mContext;
    LatestCall<Size> mResize;
    Pending mPending;
};

} // namespace lectern::gtk4
