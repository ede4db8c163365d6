// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/gtk4/View.h"
#include "client/gtk4/include/lectern-gtk4/lectern-gtk4.h"

struct _LecternView {
    GtkWidget parent;
    lectern::gtk4::View* view;
    GtkScrollablePolicy policies[2]; // horizontal, vertical
};
