// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Exporter.h"
#include "client/viewer/Part.h"
#include "client/viewer/Portal.h"
#include "client/viewer/Printing.h"

#include <array>
#include <functional>
#include <string>

namespace lectern::viewer {

// What is done with a document as a whole or with what is selected in it: copy, save a
// copy, mail, export, print.
class DocumentActions : public Part {
public:
    explicit DocumentActions(Shell& shell);

protected:
    void show(LecternDocument* document) override;

private:
    using Chosen = std::function<void(GFile*)>;

    void addKeys();
    void enableCopy();
    void copy();
    void copyCells(GObject* document, GAsyncResult* result);
    void copyCell(GObject* document, GAsyncResult* result);
    void selectAll() { lectern_view_select_all(shell().view()); }

    void saveCopy();
    void mail();
    void exportPdf() { exportAs(LECTERN_EXPORT_PDF, ".pdf"); }
    void exportText() { exportAs(LECTERN_EXPORT_TEXT, ".txt"); }
    void exportAs(LecternExportFormat format, const char* extension);
    void print();

    // The file's name with another extension.
    std::string nameWith(const char* extension) const;
    // Asks where to save. Another question ends the one before.
    void choose(const char* title, const std::string& name, Chosen chosen);
    static void onChooserResponse(GtkNativeDialog* dialog, int response, void* self);
    void copyFile(GFile* source, GFile* target);
    void copied(GObject* source, GAsyncResult* result);

    GSimpleAction* mCopy;
    std::array<GSimpleAction*, 6> mOthers;
    GLibHolder<GSignalGroup> mSelections; // signals of the view
    Exporter mExporter;
    Printing mPrinting;
    Portal mMail;
    Pending mCopying; // goes on when the document is closed
    GLibHolder<GtkFileChooserNative> mChooser;
    Chosen mChosen;
    std::unique_ptr<PrivateFile> mExported; // until it is copied
};

} // namespace lectern::viewer
