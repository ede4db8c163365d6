// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Pending.h"
#include "client/viewer/PrivateFile.h"
#include "client/viewer/Shell.h"

#include <functional>
#include <memory>
#include <string>

namespace lectern::viewer {

// Exports the document to a private file while a message with a spinner offers to
// cancel it.
class Exporter {
public:
    using Done = std::function<void(std::unique_ptr<PrivateFile>)>;

    explicit Exporter(Shell& shell) : mShell(shell) {}
    ~Exporter() { cancel(); }
    Exporter(const Exporter&) = delete;
    Exporter& operator=(const Exporter&) = delete;

    // Exports to a file of this name and passes it on. Tells the person where that
    // fails. A new export gives up the one before. REQUIRES: a document.
    void start(LecternExportFormat format, const std::string& name, Done done);
    // Gives up the export, if one runs.
    void cancel();

private:
    void finish(GObject* document, GAsyncResult* result);
    void showToast();

    Shell& mShell;
    Pending mPending;
    GLibHolder<AdwToast> mToast;
    std::unique_ptr<PrivateFile> mFile;
    Done mDone;
};

} // namespace lectern::viewer
