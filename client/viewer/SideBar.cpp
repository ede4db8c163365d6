// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/SideBar.h"

#include "client/viewer/Kinds.h"
#include "client/viewer/PlaceText.h"

namespace lectern::viewer {

namespace {

constexpr int THUMBNAIL_WIDTH = 214; // pixels of a widget: that of a row, and an edge
constexpr int INDENTATION = 16;      // of each level of headings

LecternOutlineEntry* entryOf(GtkListItem* item) {
    return LECTERN_OUTLINE_ENTRY(gtk_list_item_get_item(item));
}

// A row is a button, so that assistive technologies can press it; keys go to the row.
void setUpRow(GtkListItem* item) {
    const Ui row("side-bar-row.ui");
    gtk_list_item_set_child(item, row.widget("row"));
}

GtkWidget* boxOf(GtkListItem* item) {
    return gtk_button_get_child(GTK_BUTTON(gtk_list_item_get_child(item)));
}

GtkPicture* pictureOf(GtkListItem* item) {
    return GTK_PICTURE(gtk_widget_get_first_child(boxOf(item)));
}

// Also for assistive technologies, which name neither a row nor its button by a label inside.
void setTitle(GtkListItem* item, const std::string& title) {
    gtk_label_set_text(GTK_LABEL(gtk_widget_get_last_child(boxOf(item))), title.c_str());
    GtkWidget* button = gtk_list_item_get_child(item);
    for (GtkWidget* named : {button, gtk_widget_get_parent(button)}) {
        gtk_accessible_update_property(GTK_ACCESSIBLE(named), GTK_ACCESSIBLE_PROPERTY_LABEL, title.c_str(),
                                       -1);
    }
}

} // namespace

SideBar::SideBar(Shell& shell, AdwFlap* flap)
    : Part(shell), mFlap(flap), mPages(GTK_STACK(mUi.object("pages"))),
      mEntries(GTK_SINGLE_SELECTION(mUi.object("entries"))),
      mThumbnails([this](const GError& error) { complain(&error); }) {
    mUi.connect("factory", "setup", G_CALLBACK(+[](void*, GtkListItem* item) { setUpRow(item); }), this);
    mUi.connect("factory", "bind", handler<&SideBar::bindRow>(), this);
    mUi.connect("factory", "unbind", handler<&SideBar::unbindRow>(), this);
    mUi.connect("list", "activate", handler<&SideBar::goTo>(), this);
    const GLibHolder<GSimpleAction> goTo(g_simple_action_new("outline-entry", G_VARIANT_TYPE_UINT32));
    g_signal_connect_swapped(goTo.get(), "activate", handler<&SideBar::goToTarget>(), this);
    g_action_map_add_action(shell.actions(), G_ACTION(goTo.get()));

    const GLibHolder<GPropertyAction> isShown(g_property_action_new("sidebar", flap, "reveal-flap"));
    g_action_map_add_action(shell.actions(), G_ACTION(isShown.get()));
    g_signal_connect_swapped(flap, "notify::reveal-flap", G_CALLBACK(onSignal<&SideBar::load>), this);
    onDocument<&SideBar::markCurrent>("notify::part", this);
    show(nullptr);
}

void SideBar::show(LecternDocument* /*document*/) {
    mIsLoaded = false;
    mThumbnails.follow(nullptr, 0);
    gtk_single_selection_set_model(mEntries, nullptr);
    gtk_stack_set_visible_child_name(mPages, "empty");
    load();
}

void SideBar::load() {
    LecternDocument* open = document();
    if (open == nullptr || mIsLoaded || adw_flap_get_reveal_flap(mFlap) == FALSE) {
        return;
    }
    mIsLoaded = true;
    gtk_stack_set_visible_child_name(mPages, "entries");
    lectern_document_get_outline_async(open, mPending.get(), asyncDone<&SideBar::loaded>, this);
}

void SideBar::loaded(GObject* source, GAsyncResult* result) {
    GLibHolder<GError> error;
    const GLibHolder<GListModel> entries(
        lectern_document_get_outline_finish(LECTERN_DOCUMENT(source), result, out(error)));
    if (entries == nullptr) {
        mIsLoaded = false;
        complain(error.get());
    }
    const bool isEmpty = entries == nullptr || g_list_model_get_n_items(entries.get()) == 0;
    gtk_stack_set_visible_child_name(mPages, isEmpty ? "empty" : "entries");
    mThumbnails.follow(document(), THUMBNAIL_WIDTH * gtk_widget_get_scale_factor(widget()));
    gtk_single_selection_set_model(mEntries, entries.get());
    markCurrent();
}

// Of a text, no place of a heading is known, so the one that was tapped stays marked.
void SideBar::markCurrent() {
    LecternDocument* open = document();
    if (open == nullptr || isText(open)) {
        return;
    }
    GListModel* entries = G_LIST_MODEL(mEntries);
    for (guint i = 0; i < g_list_model_get_n_items(entries); ++i) {
        const GLibHolder<LecternOutlineEntry> entry(LECTERN_OUTLINE_ENTRY(g_list_model_get_item(entries, i)));
        if (lectern_outline_entry_get_part(entry.get()) == lectern_document_get_part(open)) {
            gtk_single_selection_set_selected(mEntries, i);
            gtk_widget_activate_action(mUi.widget("list"), "list.scroll-to-item", "u", i);
            return;
        }
    }
}

void SideBar::goToTarget(GVariant* position) {
    goTo(g_variant_get_uint32(position));
}

void SideBar::goTo(guint position) {
    LecternDocument* open = document();
    if (open == nullptr || position >= g_list_model_get_n_items(G_LIST_MODEL(mEntries))) {
        return;
    }
    gtk_single_selection_set_selected(mEntries, position);
    auto* entry = LECTERN_OUTLINE_ENTRY(gtk_single_selection_get_selected_item(mEntries));
    lectern_document_go_to_async(open, lectern_outline_entry_get_number(entry), mPending.get(),
                                 done<lectern_document_go_to_finish, SideBar>, this);
    if (adw_flap_get_folded(mFlap) != FALSE) {
        adw_flap_set_reveal_flap(mFlap, FALSE); // it covers the document
        gtk_widget_grab_focus(GTK_WIDGET(shell().view()));
    }
}

void SideBar::bindRow(GtkListItem* item) {
    LecternDocument* open = document();
    if (open == nullptr) {
        return;
    }
    LecternOutlineEntry* entry = entryOf(item);
    const int part = lectern_outline_entry_get_part(entry);
    const std::string title = lectern_outline_entry_get_title(entry);
    setTitle(item, isPresentation(open) ? slideTitle(part, title) : title);
    auto* row = GTK_ACTIONABLE(gtk_list_item_get_child(item));
    gtk_actionable_set_action_target(row, "u", gtk_list_item_get_position(item));
    gtk_actionable_set_action_name(row, "win.outline-entry"); // its target comes first
    gtk_widget_set_margin_start(boxOf(item), lectern_outline_entry_get_level(entry) * INDENTATION);
    gtk_widget_set_visible(GTK_WIDGET(pictureOf(item)), isPresentation(open) ? TRUE : FALSE);
    if (isPresentation(open)) {
        mThumbnails.want(pictureOf(item), part);
    }
}

void SideBar::unbindRow(GtkListItem* item) {
    mThumbnails.forget(pictureOf(item));
}

} // namespace lectern::viewer
