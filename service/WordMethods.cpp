// SPDX-License-Identifier: Apache-2.0
// The category "/word": methods for word-processing documents only.
#include "channel/ServiceQueue.h"
#include "service/BusCall.h"
#include "service/MethodTables.h"

namespace {

// Posts the change to the worker. Does not check the document or its kind: the
// reply only says that the request is in the queue.
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
