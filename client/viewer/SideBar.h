// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Part.h"
#include "client/viewer/Thumbnails.h"

namespace lectern::viewer {

// The outline of the document: the headings of a text, the sheets, or the slides with
// thumbnails. It is asked for when the side bar is shown first.
class SideBar : public Part {
public:
    // `flap` shows and hides the side bar.
    SideBar(Shell& shell, AdwFlap* flap);

    GtkWidget* widget() const { return GTK_WIDGET(mPages); }

private:
    void show(LecternDocument* document) override;
    void load();
    void loaded(GObject* source, GAsyncResult* result);
    void markCurrent();
    void goToTarget(GVariant* position);
    void goTo(guint position);
    void bindRow(GtkListItem* item);
    void unbindRow(GtkListItem* item);

    Ui mUi{"side-bar.ui"};
    AdwFlap* mFlap;
    GtkStack* mPages;
    GtkSingleSelection* mEntries; // LecternOutlineEntry; the current one is selected
    bool mIsLoaded = false;
    Thumbnails mThumbnails;
};

} // namespace lectern::viewer
