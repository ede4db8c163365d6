// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Ui.h"

#include <functional>

namespace lectern::viewer {

// Asks for the password of a document.
class PasswordPage {
public:
    using OnPassword = std::function<void(const std::string&)>;
    explicit PasswordPage(OnPassword onPassword);

    GtkWidget* widget() const { return mUi.widget("page"); }
    void show(const std::string& name, bool wasWrong);

private:
    void typed();
    void enter();
    void showWrong(bool wrong);

    OnPassword mOnPassword;
    Ui mUi{"password-page.ui"};
};

} // namespace lectern::viewer
