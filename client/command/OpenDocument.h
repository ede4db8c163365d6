// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "client/Document.h"
#include "client/Service.h"
#include "client/command/Interrupt.h"

namespace lectern {

// A service and one document open in it, as the sub-commands need them.
class OpenDocument {
public:
    // Shows progress, and starts the interrupt's watch. REQUIRES: one thread.
    static Result<OpenDocument> open(const std::string& path, OpenOptions options, Interrupt& interrupt);

    const Bus& bus() const { return mService->bus(); }
    Document& document() { return *mDocument; }

private:
    explicit OpenDocument(std::unique_ptr<Service> service) : mService(std::move(service)) {}

    std::unique_ptr<Service> mService; // stays where it is: the document refers to its bus
    std::unique_ptr<Document> mDocument;
};

} // namespace lectern
