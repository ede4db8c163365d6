// SPDX-License-Identifier: Apache-2.0
#include "service/Opening.h"

#include "channel/ServiceQueue.h"
#include "modules/ModuleResults.h"
#include "service/Resting.h"
#include "touch/TouchView.h"

#include <sys/eventfd.h>
#include <syslog.h>

#include <utility>

std::shared_ptr<Opening> Opening::of(const Documents& document, int docid, const char* fileName,
                                     const char* password,
                                     std::function<std::unique_ptr<OfficeBase>()> makeView) {
    std::shared_ptr<Opening> opening(new Opening());
    opening->mDocid = docid;
    opening->mAddressee = static_cast<long>(document.view->dataStoreShmId());
    opening->mFileName = fileName;
    opening->mHasPassword = password != nullptr;
    opening->mPassword = password != nullptr ? password : "";
    opening->mMakeView = std::move(makeView);
    opening->mCancel = lectern::FileDescriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    opening->mView = document.view.get();
    opening->watch();
    return opening;
}

void Opening::watch() {
    if (auto* view = dynamic_cast<TouchView*>(mView)) {
        view->watchOpen({mCancel.get(), [this](int percent) { tellProgress(percent); }});
    }
}

void Opening::run() {
    RegistryLock lock;
    if (lock.held()) {
        finish(open());
    }
}

int Opening::open() {
    return mGivenUp ? int{MODULE_CANCELLED}
                    : mView->openFile(mFileName.c_str(), mHasPassword ? mPassword.c_str() : nullptr);
}

void Opening::finish(int result) {
    const std::shared_ptr<Opening> self = shared_from_this();
    if (mAbandoned != nullptr) {
        closeAbandoned();
        return;
    }
    Documents& document = gDocuments[static_cast<size_t>(mDocid)];
    if (auto* view = dynamic_cast<TouchView*>(mView)) {
        view->watchOpen({});
    }
    if (mGivenUp && result == 0) {
        // It was too late for the module. A view that never opened takes its place, and
        // keeps the state segment.
        std::unique_ptr<OfficeBase> opened = std::exchange(document.view, mMakeView());
        document.opening.reset();
        opened.reset();
    } else {
        document.opening.reset();
        noteUse(document);
        tell(mGivenUp ? int{MODULE_CANCELLED} : result);
    }
}

void Opening::closeAbandoned() {
    mAbandoned.reset();
    // Its progress may have come after the document was destroyed.
    g_msgQueue.Discard(mAddressee);
}

void Opening::giveUp() {
    cancel();
    tell(MODULE_CANCELLED);
}

void Opening::cancel() {
    mGivenUp = true;
    eventfd_write(mCancel.get(), 1);
}

void Opening::abandon(Documents& document) {
    const std::shared_ptr<Opening> opening = std::exchange(document.opening, nullptr);
    opening->mTold = true;
    opening->cancel();
    opening->mAbandoned = std::move(document.view);
    g_msgQueue.Discard(opening->mAddressee);
}

void Opening::tell(int result) {
    if (mTold.exchange(true)) {
        return;
    }
    if (result != 0 && result != MODULE_CANCELLED) {
        syslog(LOG_NOTICE, "Error 0x%x opening '%s'.", static_cast<unsigned int>(result), mFileName.c_str());
    }
    ServerClientMessage opened(mAddressee, _OPENED);
    opened.value = mDocid;
    opened.extra = result;
    g_msgQueue.SendMessage(opened);
}

void Opening::tellProgress(int percent) {
    if (mTold) {
        return;
    }
    ServerClientMessage progress(mAddressee, _PROGRESS);
    progress.value = mDocid;
    progress.extra = percent;
    g_msgQueue.SendMessage(progress);
}
