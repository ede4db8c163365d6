// SPDX-License-Identifier: Apache-2.0
#include "client/lib/ContentKind.h"
#include "client/lib/DocumentNumber.h"
#include "client/lib/DocumentParts.h"
#include "client/lib/Errors.h"
#include <lectern/Document.h>

#include <filesystem>

namespace lectern {

Result<std::unique_ptr<Document>> Document::open(const Bus& bus, const std::string& path,
                                                 const OpenOptions& options) {
    std::error_code unusable;
    const std::string absolute = std::filesystem::absolute(path, unusable);
    if (unusable) {
        return Error{Error::Kind::Argument, "'" + path + "' is not a path", 0, {}};
    }
    Result<FrameBuffer> frame = FrameBuffer::create(options.width, options.height);
    if (!frame) {
        return frame.error();
    }
    OpenOptions known = options;
    if (known.manners == Manners::Touch && known.kind == DocumentKind::Unknown) {
        known.kind = contentKind(absolute);
    }
    auto parts = std::make_unique<Parts>(bus, absolute, std::move(known), std::move(*frame));
    const CallLimits limits{options.timeout, options.stop, options.onProgress};
    if (Failure failure = parts->open(options.restoreFrom, limits)) {
        return *failure;
    }
    return std::unique_ptr<Document>(new Document(std::move(parts)));
}

Document::Document(std::unique_ptr<Parts> parts) : mParts(std::move(parts)) {}

Document::~Document() = default;

Failure Document::reopen() {
    return reopen({mParts->options.timeout, {}, mParts->options.onProgress});
}

Failure Document::reopen(const CallLimits& limits) {
    return mParts->open(stateIdentifier(), limits);
}

const Bus& Document::bus() const {
    return mParts->bus;
}

int DocumentNumber::of(const Document& document) {
    return document.mParts->view()->docid();
}

DocumentKind Document::kind() const {
    return static_cast<DocumentKind>(mParts->view()->kind());
}

Manners Document::manners() const {
    return mParts->options.manners;
}

const FrameBuffer& Document::frame() const {
    return *mParts->frame();
}

Failure Document::resize(int width, int height, const CallLimits& limits) {
    return mParts->resize(width, height, limits);
}

ViewState Document::state() const {
    return mParts->view()->state().read();
}

unsigned int Document::stateIdentifier() const {
    return mParts->view()->state().identifier();
}

Result<std::string> Document::ask(const Request& request, const CallLimits& limits) {
    return mParts->ask(request, limits);
}

// Both functions are destroyed where callbacks are called, for they may hold the last
// reference to an object that owns the document.
void Document::later(Lane lane, Work work, std::function<void(Failure failure)> onDone,
                     std::stop_token stop) {
    auto task = [this, work = std::move(work),
                 onDone = std::move(onDone)](const std::stop_token& either) mutable {
        Failure failure = either.stop_requested() ? cancelledError() : work(*this, either);
        mParts->tell([work = std::move(work), onDone = std::move(onDone), failure = std::move(failure)] {
            if (onDone) {
                onDone(failure);
            }
        });
    };
    mParts->later(lane, std::move(task), std::move(stop));
}

CallLimits Document::limitsInLane(const CallLimits& limits, const std::stop_token& stop) const {
    CallLimits own{limits.timeout, stop, {}};
    if (limits.onProgress) {
        own.onProgress = [parts = mParts.get(), told = limits.onProgress](std::chrono::milliseconds elapsed) {
            parts->tell([told, elapsed] { told(elapsed); });
        };
    }
    return own;
}

Failure Document::paint(const CallLimits& limits) {
    return mParts->paint(limits);
}

void Document::requestPaint() {
    mParts->requestPaint(true);
}

void Document::settle() const {
    mParts->settle();
}

} // namespace lectern
