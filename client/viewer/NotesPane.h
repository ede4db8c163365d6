// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Part.h"

namespace lectern::viewer {

// A pane below the document: the presenter's notes of the shown slide, or the comment of
// the tapped cell. Texts show their comments and footnotes in place.
class NotesPane : public Part {
public:
    explicit NotesPane(Shell& shell);

    GtkWidget* widget() const { return GTK_WIDGET(mRevealer); }

private:
    void show(LecternDocument* document) override;
    void switched();
    void partChanged();
    void askForNote();
    void showNote(char* note);
    void close();
    void commentTapped();
    void showComment(LecternCell* cell);
    void showText(const std::string& heading, const char* text);

    Ui mUi{"notes-pane.ui"};
    GtkRevealer* mRevealer;
    GSimpleAction* mNotes; // on: the pane is shown
};

} // namespace lectern::viewer
