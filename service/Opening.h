// SPDX-License-Identifier: Apache-2.0
// Opening files while everything else goes on, for clients with touch manners.
#pragma once

#include "base/FileDescriptor.h"
#include "service/DocumentKind.h"
#include "service/Registry.h"

#include <atomic>
#include <memory>
#include <string>

// A view whose file a thread of its own opens, and all that this needs. Until the end of
// the open nobody else uses the view: paints show nothing and bus calls are refused. The
// thread holds the registry's lock like every user of a view, which is free for others
// while the module waits for an engine (service/ModuleWaits.h).
//
// The client is told the end by the record with id 8, and the progress by that with id 12.
class Opening : public std::enable_shared_from_this<Opening> {
public:
    // Prepares the open of a document that was just made. `makeView` makes such a view again.
    static std::shared_ptr<Opening> of(const Documents& document, int docid, const char* fileName,
                                       const char* password,
                                       std::function<std::unique_ptr<OfficeBase>()> makeView)
        REQUIRES(gRegistry);
    Opening(const Opening&) = delete;
    Opening& operator=(const Opening&) = delete;

    // Opens the file, on the calling thread, and ends the opening. Locks the registry.
    void run() EXCLUDES(gRegistry);
    // The client does not want the document any more: tells it so, and lets the module end
    // the open soon. Any thread may call it.
    void giveUp();
    // The service ends: the same, but nobody is told.
    void cancel();
    // The document is destroyed: gives it up, and takes the view out of its record. The
    // thread closes it.
    static void abandon(Documents& document) REQUIRES(gRegistry);

private:
    Opening() = default;
    void watch();
    int open();
    void finish(int result) REQUIRES(gRegistry);
    void closeAbandoned() REQUIRES(gRegistry);
    void tell(int result);
    void tellProgress(int percent);

    int mDocid = 0;
    long mAddressee = 0; // of the records
    std::string mFileName;
    std::string mPassword;
    bool mHasPassword = false;
    std::function<std::unique_ptr<OfficeBase>()> mMakeView;
    lectern::FileDescriptor mCancel; // an eventfd, readable when the open is given up
    OfficeBase* mView = nullptr;
    std::unique_ptr<OfficeBase> mAbandoned GUARDED_BY(gRegistry); // the view of a destroyed document
    std::atomic<bool> mTold = false;                              // the client knows how the open has ended
    std::atomic<bool> mGivenUp = false;
};

// The openings that run and wait, each on a thread of its own. As many as MOST_OPENINGS run
// at once, so that a client that opens many documents does not make all of them miss their
// deadlines; the others begin in the order in which they came.
constexpr size_t MOST_OPENINGS = 16;

// Runs the opening on a thread; without one, on the calling thread.
void startOpening(const std::shared_ptr<Opening>& opening) EXCLUDES(gRegistry);
// Whether any runs or waits.
bool hasOpenings();
// Cancels all. Returns when none runs any longer.
void stopOpenings() EXCLUDES(gRegistry);
