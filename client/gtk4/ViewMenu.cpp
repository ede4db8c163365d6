// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/ViewMenu.h"

#include "client/gtk4/LinkText.h"

#include <glib/gi18n-lib.h>

#include <utility>

namespace lectern::gtk4 {

namespace {

constexpr int HANDLES = 24; // what the handles of a selection take below it, in pixels of the widget

GdkRectangle placeOf(const std::vector<LecternRectangle>& rectangles, const PixelGrid& grid) {
    const LecternRectangle& first = rectangles.front();
    const LecternRectangle& last = rectangles.back();
    const int left = std::min(first.x, last.x);
    const int right = std::max(first.x + first.width, last.x + last.width);
    return {rounded(grid.toWidget(left)), rounded(grid.toWidget(first.y)),
            std::max(1, rounded(grid.toWidget(right - left))),
            std::max(1, rounded(grid.toWidget(last.y + last.height - first.y)))};
}

} // namespace

ViewMenu::ViewMenu(ViewContext& context, const ViewSelection& selection)
    : mContext(context), mSelection(selection) {}

ViewMenu::~ViewMenu() {
    dispose();
}

void ViewMenu::dispose() {
    if (mPopover != nullptr) {
        gtk_widget_unparent(std::exchange(mPopover, nullptr));
    }
}

void ViewMenu::make() {
    GLibHolder<GMenu> menu(g_menu_new());
    g_menu_append(menu.get(), _("_Copy"), "clipboard.copy");
    g_menu_append(menu.get(), _("Select _All"), "selection.select-all");
    if (!linkIn(mSelection.text()).empty()) {
        g_menu_append(menu.get(), _("_Open Link"), "link.open");
    }
    dispose();
    mPopover = gtk_popover_menu_new_from_model(G_MENU_MODEL(menu.get()));
    gtk_widget_set_parent(mPopover, mContext.widget());
    gtk_popover_set_has_arrow(GTK_POPOVER(mPopover), FALSE);
}

void ViewMenu::popUp(By by, Point at) {
    if (mContext.openDocument() == nullptr || mContext.isPresenting()) {
        return;
    }
    make();
    const PixelGrid grid = mContext.grid();
    GdkRectangle place{rounded(grid.toWidget(at.x)), rounded(grid.toWidget(at.y)), 1, 1};
    if (by == By::Touch) {
        if (!mSelection.rectangles().empty()) {
            place = placeOf(mSelection.rectangles(), grid);
            place.height += HANDLES;
        }
        gtk_popover_set_autohide(GTK_POPOVER(mPopover), FALSE);
        gtk_popover_set_position(GTK_POPOVER(mPopover), GTK_POS_TOP);
    } else {
        gtk_widget_set_halign(mPopover, GTK_ALIGN_START);
    }
    gtk_popover_set_pointing_to(GTK_POPOVER(mPopover), &place);
    gtk_popover_popup(GTK_POPOVER(mPopover));
}

void ViewMenu::popUp() {
    GtkWidget* widget = mContext.widget();
    popUp(By::Mouse,
          mContext.grid().toDevice(gtk_widget_get_width(widget) / 2.0, gtk_widget_get_height(widget) / 2.0));
}

void ViewMenu::close() {
    if (mPopover != nullptr) {
        gtk_popover_popdown(GTK_POPOVER(mPopover));
    }
}

void ViewMenu::present() {
    if (mPopover != nullptr) {
        gtk_popover_present(GTK_POPOVER(mPopover));
    }
}

} // namespace lectern::gtk4
