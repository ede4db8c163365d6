// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/SheetActions.h"

#include "client/viewer/Kinds.h"

#include <initializer_list>

namespace lectern::viewer {

namespace {

void setEnabled(std::initializer_list<GSimpleAction*> actions, bool isEnabled) {
    for (GSimpleAction* action : actions) {
        g_simple_action_set_enabled(action, isEnabled ? TRUE : FALSE);
    }
}

} // namespace

template<auto start, auto finish, auto... arguments>
void SheetActions::run() {
    start(document(), arguments..., mPending.get(), done<finish, SheetActions>, this);
}

SheetActions::SheetActions(Shell& shell)
    : Part(shell),
      mSortAscending(
          addAction<&SheetActions::run<lectern_document_sort_async, lectern_document_sort_finish, FALSE>>(
              "sort-ascending", this)),
      mSortDescending(
          addAction<&SheetActions::run<lectern_document_sort_async, lectern_document_sort_finish, TRUE>>(
              "sort-descending", this)),
      mHide(addAction<&SheetActions::run<lectern_document_hide_selection_async,
                                         lectern_document_hide_selection_finish>>("hide", this)),
      mUnhide(addAction<&SheetActions::run<lectern_document_unhide_selection_async,
                                           lectern_document_unhide_selection_finish>>("unhide", this)),
      mUnhideAll(addAction<
                 &SheetActions::run<lectern_document_unhide_all_async, lectern_document_unhide_all_finish>>(
          "unhide-all", this)),
      mResize(addToggle<&SheetActions::setResizing>("resize-tracks", this)) {
    onDocument<&SheetActions::columnSelected>("column-selected", this);
    onDocument<&SheetActions::tracksSelected>("tracks-selected", this);
    onDocument<&SheetActions::nothingSelected>("cell-tapped", this);
    onDocument<&SheetActions::nothingSelected>("notify::part", this);
    show(nullptr);
}

void SheetActions::show(LecternDocument* document) {
    nothingSelected();
    setOn(mResize, false);
    setEnabled({mUnhideAll, mResize}, isSpreadsheet(document));
}

void SheetActions::enable(bool hasColumn, bool hasTracks) {
    setEnabled({mSortAscending, mSortDescending}, hasColumn);
    setEnabled({mHide, mUnhide}, hasTracks);
}

void SheetActions::setResizing() {
    if (LecternDocument* open = document()) {
        lectern_document_set_resize_mode_async(open, isOn(mResize) ? TRUE : FALSE, mPending.get(),
                                               done<lectern_document_set_resize_mode_finish, SheetActions>,
                                               this);
    }
}

} // namespace lectern::viewer
