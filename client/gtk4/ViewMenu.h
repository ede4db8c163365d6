// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/gtk4/ViewSelection.h"

namespace lectern::gtk4 {

// The context menu. Its items are the widget's actions: "clipboard.copy",
// "selection.select-all" and "link.open".
class ViewMenu {
public:
    enum class By { Touch, Mouse };

    ViewMenu(ViewContext& context, const ViewSelection& selection);
    ~ViewMenu();
    ViewMenu(const ViewMenu&) = delete;
    ViewMenu& operator=(const ViewMenu&) = delete;

    // at: of the picture. A finger's menu stands above the selection and lets its handles
    // be dragged.
    void popUp(By by, Point at);
    // At the selection or the middle, for the key.
    void popUp();
    void close();
    // The widget has been allocated.
    void present();
    // Ends the menu with its widget.
    void dispose();

private:
    void make();

    ViewContext& mContext;
    const ViewSelection& mSelection;
    GtkWidget* mPopover = nullptr;
};

} // namespace lectern::gtk4
