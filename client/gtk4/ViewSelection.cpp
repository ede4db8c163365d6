// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/ViewSelection.h"

#include <utility>

namespace lectern::gtk4 {

namespace {

double lineHeight(const std::vector<LecternRectangle>& rectangles) {
    return rectangles.empty() ? 0 : rectangles.front().height;
}

} // namespace

ViewSelection::ViewSelection(ViewContext& context, std::function<void()> onChange)
    : mContext(context), mOnChange(std::move(onChange)) {
    mContext.onDocument("column-selected", G_CALLBACK(onSignal<&ViewSelection::refresh>), this);
    mContext.onDocument("tracks-selected", G_CALLBACK(onSignal<&ViewSelection::refresh>), this);
    const auto onCell = [](gpointer self, int /*column*/, int /*row*/) {
        static_cast<ViewSelection*>(self)->noteCell();
    };
    mContext.onDocument("cell-tapped", G_CALLBACK(+onCell), this);
}

void ViewSelection::reset() {
    mPending.giveUp();
    mSelecting.giveUp();
    mOnSelected = {};
    mReach.reset();
    mReachTo.giveUp();
    mRead.giveUp();
    mStepsLeft = 0;
    mHasCell = false;
    set({}, {});
}

void ViewSelection::set(std::string text, std::vector<LecternRectangle> rectangles) {
    mText = std::move(text);
    mRectangles = std::move(rectangles);
    mOnChange();
}

void ViewSelection::noteCell() {
    mHasCell = true;
    set({}, {});
}

void ViewSelection::select(LecternSelectUnit unit, Point at, std::function<void(bool)> onDone) {
    LecternDocument* document = mContext.openDocument();
    if (document == nullptr) {
        return;
    }
    mSelecting.giveUp(); // onDone hears of the last selection
    mOnSelected = std::move(onDone);
    mReach.reset();
    lectern_document_select_async(document, unit, rounded(at.x), rounded(at.y), mSelecting.get(),
                                  asyncDone<&ViewSelection::selected>, this);
}

void ViewSelection::selected(GObject* source, GAsyncResult* result) {
    const bool isDone = lectern_document_select_finish(LECTERN_DOCUMENT(source), result, nullptr) != FALSE;
    mHasCell = false;
    read();
    if (const auto onSelected = std::exchange(mOnSelected, {})) {
        onSelected(isDone);
    }
}

void ViewSelection::clear() {
    if (exists()) {
        select(LECTERN_SELECT_NONE, {});
        mHasCell = false;
        set({}, {});
    }
}

void ViewSelection::beginReach(const SelectionReach::Anchor& anchor) {
    mReach.emplace(anchor, mContext.isOf(LECTERN_DOCUMENT_KIND_SPREADSHEET), lineHeight(mRectangles));
}

void ViewSelection::reachTo(Point at) {
    mReachTo.want(at);
    step();
}

void ViewSelection::step() {
    LecternDocument* document = mContext.openDocument();
    const std::optional<Point> to =
        document == nullptr || !mReach || mStepsLeft > 0 ? std::nullopt : mReachTo.begin();
    if (!to) {
        return;
    }
    using Kind = SelectionReach::Step::Kind;
    const std::vector<SelectionReach::Step> steps = mReach->stepsTo(*to);
    mStepsLeft = steps.size();
    for (const SelectionReach::Step& step : steps) {
        const int x = rounded(step.at.x);
        const int y = rounded(step.at.y);
        if (step.kind == Kind::SelectWord) {
            lectern_document_select_async(document, LECTERN_SELECT_WORD, x, y, mPending.get(),
                                          asyncDone<&ViewSelection::stepped>, this);
        } else {
            lectern_document_move_selection_end_async(
                document, step.kind == Kind::MoveStart ? LECTERN_SELECT_END_START : LECTERN_SELECT_END_END, x,
                y, mPending.get(), asyncDone<&ViewSelection::stepped>, this);
        }
    }
}

// A step that fails leaves the selection as it is.
void ViewSelection::stepped(GObject* /*source*/, GAsyncResult* /*result*/) {
    if (--mStepsLeft > 0) {
        return;
    }
    mReachTo.finish();
    step();
    if (mReachTo.isIdle()) {
        read();
    }
}

void ViewSelection::refresh() {
    mHasCell = false;
    read();
}

void ViewSelection::read() {
    mRead.want(true);
    LecternDocument* document = mContext.openDocument();
    if (document != nullptr && mRead.begin()) {
        lectern_document_get_selection_async(document, mPending.get(), asyncDone<&ViewSelection::wasRead>,
                                             this);
    }
}

void ViewSelection::wasRead(GObject* source, GAsyncResult* result) {
    mRead.finish();
    if (mRead.wanted()) {
        read();
        return;
    }
    LecternSelection* selection =
        lectern_document_get_selection_finish(LECTERN_DOCUMENT(source), result, nullptr);
    if (selection == nullptr) {
        set({}, {});
        return;
    }
    set(selection->text, {selection->rectangles, selection->rectangles + selection->n_rectangles});
    lectern_selection_free(selection);
}

void ViewSelection::move(Point way) {
    for (LecternRectangle& rectangle : mRectangles) {
        rectangle.x += rounded(way.x);
        rectangle.y += rounded(way.y);
    }
    if (mReach) {
        mReach->moveAnchor(way);
    }
}

void ViewSelection::copy() {
    LecternDocument* document = mContext.openDocument();
    if (document == nullptr) {
        return;
    }
    if (mHasCell) {
        lectern_document_get_cell_async(document, -1, -1, mPending.get(),
                                        asyncDone<&ViewSelection::copiedCell>, this);
    } else {
        lectern_document_get_selection_async(document, mPending.get(), asyncDone<&ViewSelection::copied>,
                                             this);
    }
}

void ViewSelection::copied(GObject* source, GAsyncResult* result) {
    LecternSelection* selection =
        lectern_document_get_selection_finish(LECTERN_DOCUMENT(source), result, nullptr);
    if (selection != nullptr) {
        gdk_clipboard_set_text(gtk_widget_get_clipboard(mContext.widget()), selection->text);
        lectern_selection_free(selection);
    }
}

void ViewSelection::copiedCell(GObject* source, GAsyncResult* result) {
    LecternCell* cell = lectern_document_get_cell_finish(LECTERN_DOCUMENT(source), result, nullptr);
    if (cell != nullptr) {
        gdk_clipboard_set_text(gtk_widget_get_clipboard(mContext.widget()), cell->text);
        lectern_cell_free(cell);
    }
}

} // namespace lectern::gtk4
