// SPDX-License-Identifier: Apache-2.0
// The category "/word".
#include "channel/ServiceQueue.h"
#include "service/BusCall.h"
#include "service/MethodTables.h"

namespace {

// Leaves the change to the worker: neither the document nor its kind is looked
// at here, and the answer says no more than that the wish is queued.
bool wideMode(HubHandle* handle, HubMessage* message, void* /*data*/) {
    BusCall call(handle, message);
    int docid = 0;
    bool wide = false;
    if (!call.require("docid", docid) || !call.require("wideMode", wide)) {
        return true;
    }
    ClientServerMessage wish(_WIDE_MODE, docid);
    wish.setFlag(wide);
    if (g_msgQueue.SendMessage(wish) == 0) {
        call.replyDone();
    }
    return true;
}

} // namespace

const HubMethod wordMethods[] = {
    {"wideMode", wideMode, 0},
    {nullptr, nullptr, 0},
};
