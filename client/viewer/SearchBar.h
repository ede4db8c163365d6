// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/HitMarks.h"
#include "client/viewer/HitStrip.h"
#include "client/viewer/Part.h"

#include <string>

namespace lectern::viewer {

// The search of the document: searches while the user types, shows how many hits there
// are, and steps through them.
class SearchBar : public Part {
public:
    explicit SearchBar(Shell& shell);

    GtkWidget* widget() const { return GTK_WIDGET(mBar); }
    // The marks of hits, for the place of the view's scrollbar.
    GtkWidget* marks() const { return mStrip.widget(); }

private:
    void show(LecternDocument* document) override;
    void openedOrClosed();
    void search();
    void searchAgain();
    void enter();
    void next();
    void previous();
    void serviceCameOrWent();
    void moved();
    template<auto finish>
    void arrived(GObject* source, GAsyncResult* result);
    void showCount();
    void showNoCount(const char* text);
    void showMarks();

    Ui mUi{"search-bar.ui"};
    GtkSearchBar* mBar;
    GtkEditable* mEntry;
    GtkLabel* mCount;
    GSimpleAction* mNext; // owned by the window, as all actions
    GSimpleAction* mPrevious;
    GSimpleAction* mMatchCase;
    GSimpleAction* mWholeWords;
    HitStrip mStrip;
    HitMarks mMarks;
    std::string mSearched;    // the text of the last search; empty: search again
    bool mIsArriving = false; // the view has gone to a hit, and the picture may show it later
};

} // namespace lectern::viewer
