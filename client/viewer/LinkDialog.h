// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Part.h"

#include <string>

namespace lectern::viewer {

// Asks before a link that leads out of the document is opened. Links inside it jump at
// once, and never come here.
class LinkDialog {
public:
    explicit LinkDialog(Shell& shell);
    LinkDialog(const LinkDialog&) = delete;
    LinkDialog& operator=(const LinkDialog&) = delete;

private:
    void ask(const char* address);
    void answered(const char* response);
    void opened(GObject* window, GAsyncResult* result);

    Shell& mShell;
    std::string mAddress; // of the last question
    Pending mPending;
};

} // namespace lectern::viewer
