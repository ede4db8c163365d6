// SPDX-License-Identifier: Apache-2.0
// The category "/common": what documents of every kind can do.
#include "service/DocumentMethod.h"
#include "service/MethodTables.h"

namespace {

bool getDocProperties(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return documentMethod(handle, message,
                          [](BusCall& call, OfficeBase& view) { call.reply(view.getDocProperties()); });
}

bool getMimeInfo(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return documentMethod(handle, message,
                          [](BusCall& call, OfficeBase& view) { call.reply(view.getMimeInfo()); });
}

// Both parameters are read before either is tested, the docid first.
bool doSearch(HubHandle* handle, HubMessage* message, void* /*data*/) {
    BusCall call(handle, message);
    int docid = 0;
    const char* text = nullptr;
    const bool hasDocid = json_get_int(call.payload(), "docid", &docid);
    const bool hasText = json_get_string(call.payload(), "search", &text);
    if (!hasDocid || !hasText) {
        call.replyError(kParamFailed, hasDocid ? "failed to get search query" : kNoDocid);
        return true;
    }
    withDocument(call, docid, [&](OfficeBase& view) {
        call.reply(view.doSearch(text));
        view.InvalidateScreen();
    });
    return true;
}

// Shows the change before the caller hears of it.
template<typename Operation>
bool changingMethod(HubHandle* handle, HubMessage* message, Operation operation) {
    return documentMethod(handle, message, [&](BusCall& call, OfficeBase& view) {
        operation(view);
        view.InvalidateScreen();
        call.replyDone();
    });
}

bool nextResult(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return changingMethod(handle, message,
                          [](OfficeBase& view) { withViewLocked(view, [&] { return view.nextResult(); }); });
}

bool previousResult(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return changingMethod(handle, message, [](OfficeBase& view) {
        withViewLocked(view, [&] { return view.previousResult(); });
    });
}

bool closeSearch(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return changingMethod(handle, message, [](OfficeBase& view) { view.stopFind(); });
}

bool clearSelection(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return changingMethod(handle, message, [](OfficeBase& view) { view.clearSelection(); });
}

} // namespace

const HubMethod commonMethods[] = {
    {"getDocProperties", getDocProperties, 0},
    {"Search", doSearch, 0},
    {"nextResult", nextResult, 0},
    {"previousResult", previousResult, 0},
    {"closeSearch", closeSearch, 0},
    {"clearSelection", clearSelection, 0},
    {"getMimeInfo", getMimeInfo, 0},
    {nullptr, nullptr, 0},
};
