// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Portal.h"
#include "client/viewer/PrivateFile.h"
#include "client/viewer/Shell.h"

#include <gtk/gtkunixprint.h>

#include <memory>
#include <string>

namespace lectern::viewer {

// Prints a PDF by the portal of the desktop or, where there is none, by the dialog of
// the toolkit.
class Printing {
public:
    explicit Printing(Shell& shell) : mShell(shell) {}
    ~Printing();
    Printing(const Printing&) = delete;
    Printing& operator=(const Printing&) = delete;

    // title: of the print job.
    void print(std::unique_ptr<PrivateFile> pdf, const std::string& title);

private:
    void prepared(Portal::Answer answer, GVariant* results);
    void send(guint32 preparation);
    void showDialog();
    static void onDialogResponse(GtkDialog* dialog, int response, void* self);
    void sendTo(GtkPrintUnixDialog* dialog);

    Shell& mShell;
    Portal mPortal;
    GtkPrintUnixDialog* mDialog = nullptr; // owned by the toolkit
    std::unique_ptr<PrivateFile> mPdf;
    std::string mTitle;
};

} // namespace lectern::viewer
