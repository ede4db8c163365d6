// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/NotesPane.h"

#include "client/viewer/Kinds.h"
#include "client/viewer/PlaceText.h"

#include <algorithm>

namespace lectern::viewer {

namespace {

constexpr int LARGEST_HEIGHT = 160; // of the text, in pixels; more of it is scrolled

} // namespace

NotesPane::NotesPane(Shell& shell)
    : Part(shell), mRevealer(GTK_REVEALER(mUi.object("revealer"))),
      mNotes(addToggle<&NotesPane::switched>("notes", this)) {
    mUi.connect("close", "clicked", G_CALLBACK(onSignal<&NotesPane::close>), this);
    onDocument<&NotesPane::partChanged>("notify::part", this);
    onDocument<&NotesPane::close>("cell-tapped", this); // comes before that of its comment
    onDocument<&NotesPane::commentTapped>("comment-tapped", this);
    show(nullptr);
}

void NotesPane::show(LecternDocument* document) {
    setOn(mNotes, false);
    g_simple_action_set_enabled(mNotes, isPresentation(document) ? TRUE : FALSE);
}

void NotesPane::switched() {
    gtk_revealer_set_reveal_child(mRevealer, isOn(mNotes) ? TRUE : FALSE);
    if (isOn(mNotes) && isPresentation(document())) {
        askForNote();
    }
}

void NotesPane::partChanged() {
    if (isPresentation(document()) && isOn(mNotes)) {
        askForNote();
    } else if (isSpreadsheet(document())) {
        setOn(mNotes, false); // the comment is one of another sheet
    }
}

void NotesPane::askForNote() {
    mPending.giveUp();
    lectern_document_get_note_async(document(), mPending.get(),
                                    answered<lectern_document_get_note_finish, &NotesPane::showNote>, this);
}

void NotesPane::showNote(char* note) {
    showText(notesHeading(lectern_document_get_part(document())),
             *note != '\0' ? note : _("This slide has no notes."));
    g_free(note);
}

void NotesPane::close() {
    setOn(mNotes, false);
}

void NotesPane::commentTapped() {
    if (isSpreadsheet(document())) {
        mPending.giveUp();
        lectern_document_get_cell_async(document(), -1, -1, mPending.get(),
                                        answered<lectern_document_get_cell_finish, &NotesPane::showComment>,
                                        this);
    }
}

void NotesPane::showComment(LecternCell* cell) {
    showText(commentHeading(cell->address), cell->comment);
    lectern_cell_free(cell);
    setOn(mNotes, true);
}

// A scrolled window would ask for the height that the text has at another width.
void NotesPane::showText(const std::string& heading, const char* text) {
    gtk_label_set_text(mUi.label("heading"), heading.c_str());
    gtk_label_set_text(mUi.label("text"), text);
    int height = 0;
    gtk_widget_measure(mUi.widget("text"), GTK_ORIENTATION_VERTICAL, gtk_widget_get_width(widget()), nullptr,
                       &height, nullptr, nullptr);
    gtk_scrolled_window_set_min_content_height(GTK_SCROLLED_WINDOW(mUi.object("scroller")),
                                               std::min(height, LARGEST_HEIGHT));
}

} // namespace lectern::viewer
