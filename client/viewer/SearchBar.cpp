// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/SearchBar.h"

#include "client/viewer/PlaceText.h"

#include <algorithm>

namespace lectern::viewer {

SearchBar::SearchBar(Shell& shell)
    : Part(shell), mBar(GTK_SEARCH_BAR(mUi.object("bar"))), mEntry(GTK_EDITABLE(mUi.object("entry"))),
      mCount(mUi.label("count")), mNext(addAction<&SearchBar::next>("find-next", this)),
      mPrevious(addAction<&SearchBar::previous>("find-previous", this)),
      mMatchCase(addToggle<&SearchBar::searchAgain>("search-case", this)),
      mWholeWords(addToggle<&SearchBar::searchAgain>("search-whole-words", this)) {
    gtk_search_bar_connect_entry(mBar, mEntry);
    mUi.connect("bar", "notify::search-mode-enabled", G_CALLBACK(onSignal<&SearchBar::openedOrClosed>), this);
    mUi.connect("entry", "search-changed", G_CALLBACK(onSignal<&SearchBar::search>), this);
    mUi.connect("entry", "activate", G_CALLBACK(onSignal<&SearchBar::enter>), this);
    onDocument<&SearchBar::serviceCameOrWent>("notify::gone", this);
    onDocument<&SearchBar::moved>("notify::y", this);
    onDocument<&SearchBar::moved>("notify::part", this);

    const GLibHolder<GPropertyAction> isOpen(g_property_action_new("search", mBar, "search-mode-enabled"));
    g_action_map_add_action(shell.actions(), G_ACTION(isOpen.get()));
    show(nullptr);
}

void SearchBar::show(LecternDocument* /*document*/) {
    gtk_search_bar_set_search_mode(mBar, FALSE);
    showNoCount("");
}

void SearchBar::openedOrClosed() {
    LecternDocument* open = document();
    if (gtk_search_bar_get_search_mode(mBar) == FALSE) {
        mPending.giveUp();
        if (open != nullptr) {
            lectern_document_close_search_async(open, nullptr, nullptr, nullptr);
            gtk_widget_grab_focus(GTK_WIDGET(shell().view()));
        }
        showNoCount("");
    } else if (open == nullptr) {
        gtk_search_bar_set_search_mode(mBar, FALSE);
    } else {
        searchAgain();
    }
}

void SearchBar::searchAgain() {
    mSearched.clear();
    search();
}

void SearchBar::search() {
    LecternDocument* open = document();
    if (open == nullptr || gtk_search_bar_get_search_mode(mBar) == FALSE) {
        return;
    }
    const std::string text = gtk_editable_get_text(mEntry);
    if (text == mSearched) {
        return;
    }
    mPending.giveUp();
    showNoCount(text.empty() ? "" : "…");
    if (text.empty()) {
        lectern_document_close_search_async(open, nullptr, nullptr, nullptr);
        return;
    }
    mSearched = text;
    const int flags = (isOn(mMatchCase) ? LECTERN_SEARCH_MATCH_CASE : 0) |
                      (isOn(mWholeWords) ? LECTERN_SEARCH_WHOLE_WORDS : 0);
    lectern_document_search_async(open, text.c_str(), static_cast<LecternSearchFlags>(flags), mPending.get(),
                                  asyncDone<&SearchBar::arrived<lectern_document_search_finish>>, this);
}

// Enter steps through the hits of a text that was already searched for.
void SearchBar::enter() {
    gtk_editable_get_text(mEntry) == mSearched ? next() : search();
}

void SearchBar::next() {
    if (LecternDocument* open = document()) {
        lectern_document_next_hit_async(
            open, mPending.get(), asyncDone<&SearchBar::arrived<lectern_document_next_hit_finish>>, this);
    }
}

void SearchBar::previous() {
    if (LecternDocument* open = document()) {
        lectern_document_previous_hit_async(
            open, mPending.get(), asyncDone<&SearchBar::arrived<lectern_document_previous_hit_finish>>, this);
    }
}

// A service that has come back does not know the search.
void SearchBar::serviceCameOrWent() {
    if (LecternDocument* open = document(); open != nullptr && lectern_document_get_gone(open) == FALSE) {
        searchAgain();
    }
}

template<auto finish>
void SearchBar::arrived(GObject* source, GAsyncResult* result) {
    GLibHolder<GError> error;
    const bool isDone = finish(LECTERN_DOCUMENT(source), result, out(error)) != FALSE;
    constexpr int NO_HIT = LECTERN_SERVICE_ERROR_NOTHING_THERE;
    if (!isDone && g_error_matches(error.get(), LECTERN_SERVICE_ERROR, NO_HIT) == FALSE) {
        showNoCount("");
        complain(error.get());
        return;
    }
    mIsArriving = true;
    showCount();
}

// The picture of the hit has come: now its place is known.
void SearchBar::moved() {
    showMarks();
    mIsArriving = false;
}

void SearchBar::showCount() {
    LecternDocument* open = document();
    const int hit = lectern_document_get_hit(open);
    const int hits = lectern_document_get_n_hits(open);
    g_simple_action_set_enabled(mNext, hits > 0 ? TRUE : FALSE);
    g_simple_action_set_enabled(mPrevious, hits > 0 ? TRUE : FALSE);
    gtk_label_set_text(mCount, hitText(hit, hits).c_str());
    if (hits < 1) {
        gtk_widget_add_css_class(GTK_WIDGET(mEntry), "error");
        gtk_accessible_update_state(GTK_ACCESSIBLE(mEntry), GTK_ACCESSIBLE_STATE_INVALID,
                                    GTK_ACCESSIBLE_INVALID_TRUE, -1);
        mMarks.clear();
    }
    showMarks();
}

void SearchBar::showNoCount(const char* text) {
    mSearched.clear();
    mIsArriving = false;
    g_simple_action_set_enabled(mNext, FALSE);
    g_simple_action_set_enabled(mPrevious, FALSE);
    gtk_label_set_text(mCount, text);
    gtk_widget_remove_css_class(GTK_WIDGET(mEntry), "error");
    gtk_accessible_reset_state(GTK_ACCESSIBLE(mEntry), GTK_ACCESSIBLE_STATE_INVALID);
    mMarks.clear();
    showMarks();
}

void SearchBar::showMarks() {
    LecternDocument* open = document();
    if (open == nullptr) {
        mStrip.show({});
        return;
    }
    const int part = lectern_document_get_part(open);
    const int hit = lectern_document_get_hit(open);
    if (hit >= 0 && mIsArriving) {
        const double middle = lectern_document_get_y(open) + lectern_document_get_height(open) / 2.0;
        const auto length = static_cast<double>(lectern_document_get_document_height(open));
        mMarks.visit(hit, part, middle / std::max(1.0, length));
    }
    mStrip.show(mMarks.marks(lectern_document_get_kind(open), part, lectern_document_get_n_parts(open)));
}

} // namespace lectern::viewer
