// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/ProblemPage.h"

#include "client/viewer/Texts.h"

namespace lectern::viewer {

void ProblemPage::show(const GError& error) {
    const Problem problem = problemOf(error);
    adw_status_page_set_title(ADW_STATUS_PAGE(widget()), problem.title.c_str());
    adw_status_page_set_description(ADW_STATUS_PAGE(widget()), problem.advice.c_str());
    gtk_label_set_label(mUi.label("detail"), error.message);
    gtk_widget_grab_focus(mUi.widget("again"));
}

} // namespace lectern::viewer
