// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Part.h"
#include "client/viewer/SheetTabs.h"

namespace lectern::viewer {

// Tells over the document where the view is while it moves, and fades out at rest. It
// wakes up only once after a movement.
class PageIndicator : public Part {
public:
    // `tabs` outlives this.
    PageIndicator(Shell& shell, const SheetTabs& tabs);
    ~PageIndicator() override;

    GtkWidget* widget() const { return GTK_WIDGET(mRevealer); }

private:
    void show(LecternDocument* document) override;
    void moved();
    void fadeOutLater();
    void stopTimer();

    const SheetTabs& mTabs;
    Ui mUi{"page-indicator.ui"};
    GtkRevealer* mRevealer;
    GtkLabel* mText;
    guint mTimer = 0;
};

} // namespace lectern::viewer
