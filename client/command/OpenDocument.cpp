// SPDX-License-Identifier: Apache-2.0
#include "client/command/OpenDocument.h"

#include "client/command/Commands.h"
#include "client/command/InputFile.h"
#include "client/command/Progress.h"
#include <lectern/Service.h>

#include <filesystem>
#include <mutex>

namespace lectern {

namespace {

// Why a document was lost, which a thread of the document tells.
class Loss {
public:
    void note(const Error& error) {
        const std::lock_guard lock(mMutex);
        mError = error;
    }
    Failure told() {
        const std::lock_guard lock(mMutex);
        return mError;
    }

private:
    std::mutex mMutex;
    Failure mError;
};

Result<std::unique_ptr<Document>> open(const Bus& bus, const std::string& path, const OpenOptions& options) {
    const Progress progress("opening " + std::filesystem::path(path).filename().string());
    return Document::open(bus, path, options);
}

} // namespace

OpenOptions openOptions(const ViewArguments& view, const std::optional<std::string>& password) {
    OpenOptions options;
    options.password = password;
    options.manners = view.manners;
    options.dpi = view.dpi;
    options.kind = view.kind;
    return options;
}

int withDocument(const DocumentName& name, OpenOptions options, Interrupt& interrupt,
                 const DocumentWork& work) {
    const Result<InputFile> file = InputFile::open(name.file, name.type);
    if (!file) {
        return report(file.error());
    }
    options.stop = interrupt.token();
    const Result<Service> service = Service::open({.isolate = true, .stop = options.stop});
    if (!service) {
        return report(service.error());
    }
    interrupt.watch();
    Loss loss;
    options.events.onDocumentLost = [&loss](const Error& error) { loss.note(error); };
    const Result<std::unique_ptr<Document>> document = open(service->bus(), file->path(), options);
    if (!document) {
        return report(document.error());
    }
    const Failure failure = work(**document, {.stop = options.stop});
    if (failure) {
        return report(*failure);
    }
    const Failure lost = loss.told();
    return lost ? report(*lost) : STATUS_DONE;
}

} // namespace lectern
