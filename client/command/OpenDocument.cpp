// SPDX-License-Identifier: Apache-2.0
#include "client/command/OpenDocument.h"

#include <filesystem>

#include "client/command/Progress.h"

namespace lectern {

Result<OpenDocument> OpenDocument::open(const std::string& path, OpenOptions options, Interrupt& interrupt) {
    options.stop = interrupt.token();
    Result<Service> service = Service::open({.isolate = true, .stop = options.stop});
    if (!service) {
        return service.error();
    }
    interrupt.watch();
    const Progress progress("opening " + std::filesystem::path(path).filename().string());
    OpenDocument opened(std::make_unique<Service>(std::move(*service)));
    Result<std::unique_ptr<Document>> document = Document::open(opened.bus(), path, options);
    if (!document) {
        return document.error();
    }
    opened.mDocument = std::move(*document);
    return opened;
}

} // namespace lectern
