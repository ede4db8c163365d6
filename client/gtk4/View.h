// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"

#include <gtk/gtk.h>
#include <lectern-glib/lectern-glib.h>

namespace lectern::gtk4 {

// Everything behind a LecternView.
class View {
public:
    explicit View(GtkWidget* widget);
    ~View();
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    GtkWidget* widget() const { return mWidget; }
    LecternDocument* document() const { return mDocument.get(); }
    // Returns whether it is another one.
    bool setDocument(LecternDocument* document);

private:
    GtkWidget* mWidget;
    GLibHolder<LecternDocument> mDocument;
};

} // namespace lectern::gtk4
