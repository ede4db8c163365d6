// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/PasswordPage.h"

#include "client/viewer/Pending.h"

namespace lectern::viewer {

PasswordPage::PasswordPage(OnPassword onPassword) : mOnPassword(std::move(onPassword)) {
    mUi.connect("entry", "changed", G_CALLBACK(onSignal<&PasswordPage::typed>), this);
    mUi.connect("entry", "entry-activated", G_CALLBACK(onSignal<&PasswordPage::enter>), this);
    mUi.connect("unlock", "clicked", G_CALLBACK(onSignal<&PasswordPage::enter>), this);
}

void PasswordPage::show(const std::string& name, bool wasWrong) {
    const GLibHolder<char> text(
        // TRANSLATORS: %s is the name of a file
        g_markup_printf_escaped(_("“%s” is protected. Enter its password to read it."), name.c_str()));
    adw_status_page_set_description(ADW_STATUS_PAGE(widget()), text.get());
    gtk_editable_set_text(GTK_EDITABLE(mUi.object("entry")), "");
    typed();
    showWrong(wasWrong);
    gtk_widget_grab_focus(mUi.widget("entry"));
}

void PasswordPage::typed() {
    const char* password = gtk_editable_get_text(GTK_EDITABLE(mUi.object("entry")));
    gtk_widget_set_sensitive(mUi.widget("unlock"), *password != '\0' ? TRUE : FALSE);
    if (*password != '\0') {
        showWrong(false);
    }
}

void PasswordPage::enter() {
    const std::string password = gtk_editable_get_text(GTK_EDITABLE(mUi.object("entry")));
    if (!password.empty()) {
        mOnPassword(password);
    }
}

void PasswordPage::showWrong(bool wrong) {
    gtk_widget_set_visible(mUi.widget("wrong"), wrong ? TRUE : FALSE);
    if (wrong) {
        gtk_widget_add_css_class(mUi.widget("entry"), "error");
    } else {
        gtk_widget_remove_css_class(mUi.widget("entry"), "error");
    }
}

} // namespace lectern::viewer
