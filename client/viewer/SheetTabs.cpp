// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/SheetTabs.h"

#include "client/viewer/Kinds.h"

namespace lectern::viewer {

namespace {

constexpr int NO_SHEET = -1;

GLibHolder<LecternOutlineEntry> entryAt(GListModel* entries, guint position) {
    return GLibHolder<LecternOutlineEntry>(LECTERN_OUTLINE_ENTRY(g_list_model_get_item(entries, position)));
}

GtkWidget* newTab(LecternOutlineEntry* sheet) {
    GtkWidget* tab = gtk_toggle_button_new_with_label(lectern_outline_entry_get_title(sheet));
    gtk_widget_add_css_class(tab, "flat");
    gtk_widget_set_focus_on_click(tab, FALSE); // keys still move the sheet
    gtk_actionable_set_action_target(GTK_ACTIONABLE(tab), "i", lectern_outline_entry_get_number(sheet));
    gtk_actionable_set_action_name(GTK_ACTIONABLE(tab), "win.sheet"); // its target comes first
    return tab;
}

} // namespace

SheetTabs::SheetTabs(Shell& shell, const Ui& ui)
    : Part(shell), mScroller(GTK_SCROLLED_WINDOW(ui.object("tab-scroller"))),
      mTabs(GTK_BOX(ui.object("tabs"))) {
    const GLibHolder<GSimpleAction> sheet(
        g_simple_action_new_stateful("sheet", G_VARIANT_TYPE_INT32, g_variant_new_int32(NO_SHEET)));
    g_signal_connect_swapped(sheet.get(), "activate", handler<&SheetTabs::goTo>(), this);
    g_action_map_add_action(shell.actions(), G_ACTION(sheet.get()));
    mSheet = sheet.get();
    g_signal_connect_swapped(gtk_scrolled_window_get_hadjustment(mScroller), "changed",
                             G_CALLBACK(onSignal<&SheetTabs::bringIntoView>), this);
    onDocument<&SheetTabs::markShown>("notify::part", this);
    show(nullptr);
}

void SheetTabs::show(LecternDocument* document) {
    take(nullptr);
    if (isSpreadsheet(document)) {
        lectern_document_get_outline_async(
            document, mPending.get(), answered<lectern_document_get_outline_finish, &SheetTabs::take>, this);
    }
}

void SheetTabs::take(GListModel* sheets) {
    mEntries.reset(sheets);
    while (GtkWidget* tab = gtk_widget_get_first_child(GTK_WIDGET(mTabs))) {
        gtk_box_remove(mTabs, tab);
    }
    const guint count = sheets != nullptr ? g_list_model_get_n_items(sheets) : 0;
    for (guint i = 0; i < count; ++i) {
        gtk_box_append(mTabs, newTab(entryAt(sheets, i).get()));
    }
    gtk_widget_set_visible(GTK_WIDGET(mScroller), count > 1 ? TRUE : FALSE);
    markShown();
}

void SheetTabs::markShown() {
    int shown = NO_SHEET;
    mShownName.clear();
    const guint count = mEntries != nullptr ? g_list_model_get_n_items(mEntries.get()) : 0;
    for (guint i = 0; i < count && document() != nullptr; ++i) {
        const auto sheet = entryAt(mEntries.get(), i);
        if (lectern_outline_entry_get_part(sheet.get()) == lectern_document_get_part(document())) {
            shown = lectern_outline_entry_get_number(sheet.get());
            mShownName = lectern_outline_entry_get_title(sheet.get());
        }
    }
    g_simple_action_set_state(mSheet, g_variant_new_int32(shown));
    bringIntoView();
}

void SheetTabs::bringIntoView() {
    GtkWidget* tab = gtk_widget_get_first_child(GTK_WIDGET(mTabs));
    while (tab != nullptr && gtk_toggle_button_get_active(GTK_TOGGLE_BUTTON(tab)) == FALSE) {
        tab = gtk_widget_get_next_sibling(tab);
    }
    graphene_rect_t place;
    if (tab != nullptr && gtk_widget_compute_bounds(tab, GTK_WIDGET(mTabs), &place)) {
        gtk_adjustment_clamp_page(gtk_scrolled_window_get_hadjustment(mScroller), place.origin.x,
                                  place.origin.x + place.size.width);
    }
}

void SheetTabs::goTo(GVariant* entry) {
    if (LecternDocument* open = document()) {
        lectern_document_go_to_async(open, g_variant_get_int32(entry), mPending.get(),
                                     done<lectern_document_go_to_finish, SheetTabs>, this);
    }
}

} // namespace lectern::viewer
