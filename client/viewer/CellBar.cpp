// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/CellBar.h"

#include "client/viewer/Kinds.h"

#include <algorithm>

namespace lectern::viewer {

namespace {

// A cell in this share of the view's middle need not move; the headers, whose size is not
// known here, cover less than the rest.
constexpr double MIDDLE_SHARE = 0.6;

// How far the view must move along an axis so that [start, start + length) is in its middle.
int wayToMiddle(int start, int length, int viewLength) {
    const double edge = viewLength * (1 - MIDDLE_SHARE) / 2;
    const bool isThere = start >= edge && start + length <= viewLength - edge;
    return isThere ? 0 : start + length / 2 - viewLength / 2;
}

void tap(LecternDocument* document, const LecternRectangle& place) {
    const auto middle = [](int start, int length, int viewLength) {
        return std::clamp(start + length / 2, 0, std::max(0, viewLength - 1));
    };
    lectern_document_click(document, middle(place.x, place.width, lectern_document_get_width(document)),
                           middle(place.y, place.height, lectern_document_get_height(document)));
}

} // namespace

CellBar::CellBar(Shell& shell, const Ui& ui)
    : Part(shell), mBar(ui.widget("cell-bar")), mAddress(GTK_EDITABLE(ui.object("address"))),
      mContents(GTK_EDITABLE(ui.object("contents"))),
      mGoToCell(addAction<&CellBar::startTyping>("go-to-cell", this)) {
    ui.connect("address", "activate", G_CALLBACK(onSignal<&CellBar::goToTyped>), this);
    onDocument<&CellBar::tapped>("cell-tapped", this);
    onDocument<&CellBar::clear>("notify::part", this);
    show(nullptr);
}

void CellBar::show(LecternDocument* document) {
    const gboolean isSheet = isSpreadsheet(document) ? TRUE : FALSE;
    gtk_widget_set_visible(mBar, isSheet);
    g_simple_action_set_enabled(mGoToCell, isSheet);
    clear();
}

void CellBar::tapped(int column, int row) {
    lectern_document_get_cell_async(document(), column, row, mPending.get(),
                                    answered<lectern_document_get_cell_finish, &CellBar::showTapped>, this);
}

void CellBar::showTapped(LecternCell* cell) {
    showCell(cell->address, *cell->formula != '\0' ? cell->formula : cell->text);
    lectern_cell_free(cell);
}

void CellBar::showCell(const char* address, const char* contents) {
    gtk_editable_set_text(mAddress, address);
    gtk_editable_set_text(mContents, contents);
}

void CellBar::startTyping() {
    gtk_widget_grab_focus(GTK_WIDGET(mAddress)); // its text is then selected
}

void CellBar::goToTyped() {
    if (const auto address = parseCellAddress(gtk_editable_get_text(mAddress))) {
        mWanted = *address;
        mHasScrolled = false;
        askForWanted();
    } else {
        shell().say(_("Type the name of a cell, such as B7."));
    }
}

void CellBar::askForWanted() {
    lectern_document_get_cell_async(document(), mWanted.column, mWanted.row, mPending.get(),
                                    answered<lectern_document_get_cell_finish, &CellBar::goToWanted>, this);
}

// Brings the cell to the middle, asks for its new place, and taps it there: that marks it.
void CellBar::goToWanted(LecternCell* cell) {
    const LecternRectangle place = cell->place;
    lectern_cell_free(cell);
    LecternDocument* sheet = document();
    const int right = wayToMiddle(place.x, place.width, lectern_document_get_width(sheet));
    const int down = wayToMiddle(place.y, place.height, lectern_document_get_height(sheet));
    if (place.width < 1 || place.height < 1) {
        shell().say(_("This cell is hidden."));
    } else if (mHasScrolled || (right == 0 && down == 0)) {
        tap(sheet, place);
        gtk_widget_grab_focus(GTK_WIDGET(shell().view()));
    } else {
        lectern_document_scroll_to_async(sheet, lectern_document_get_x(sheet) + right,
                                         lectern_document_get_y(sheet) + down, mPending.get(),
                                         asyncDone<&CellBar::scrolled>, this);
    }
}

void CellBar::scrolled(GObject* source, GAsyncResult* result) {
    GLibHolder<GError> error;
    if (lectern_document_scroll_to_finish(LECTERN_DOCUMENT(source), result, out(error)) == FALSE) {
        complain(error.get());
        return;
    }
    mHasScrolled = true;
    askForWanted();
}

} // namespace lectern::viewer
