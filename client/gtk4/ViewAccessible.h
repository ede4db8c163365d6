// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/gtk4/ViewContext.h"
#include "client/gtk4/ViewSelection.h"

namespace lectern::gtk4 {

// The text on the screen for screen readers. GTK passes on only the texts of its own
// widgets, so an invisible text view mirrors it; while no assistive technology runs,
// there is none. It changes when the document has come to rest.
class ViewAccessible {
public:
    ViewAccessible(ViewContext& context, const ViewSelection& selection);
    ~ViewAccessible();
    ViewAccessible(const ViewAccessible&) = delete;
    ViewAccessible& operator=(const ViewAccessible&) = delete;

    void reset();
    // The picture has changed.
    void noteChange();
    void noteSelection();
    void allocate(int width, int height);
    // Ends the text view with its widget.
    void dispose();

private:
    void connected(GObject* source, GAsyncResult* result);
    void noteStatus();
    void noteTitle();
    void stopTimer();
    void read();
    void wasRead(GObject* source, GAsyncResult* result);

    ViewContext& mContext;
    const ViewSelection& mSelection;
    GLibHolder<GDBusProxy> mStatus;
    GtkWidget* mText = nullptr;
    guint mTimer = 0;
    Pending mReading;
    Pending mPending;
};

} // namespace lectern::gtk4
