// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/View.h"

namespace lectern::gtk4 {

View::View(GtkWidget* widget) : mWidget(widget) {}

View::~View() = default;

bool View::setDocument(LecternDocument* document) {
    if (document == mDocument.get()) {
        return false;
    }
    mDocument.reset(document == nullptr ? nullptr : LECTERN_DOCUMENT(g_object_ref(document)));
    return true;
}

} // namespace lectern::gtk4
