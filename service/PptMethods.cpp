// SPDX-License-Identifier: Apache-2.0
// The category "/ppt": what only presentations can do.
#include "ppt/PPT.h"
#include "service/DocumentMethod.h"
#include "service/MethodTables.h"
#include "view/JsonReply.h"

namespace {

constexpr char kWrongKind[] = "Not a PowerPoint document";

// A handler for a method whose only parameter is "docid".
template<typename Operation>
bool slideMethod(HubHandle* handle, HubMessage* message, Operation operation) {
    return documentMethodOf<PPT>(handle, message, kWrongKind, operation);
}

bool getSlideCount(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return slideMethod(handle, message, [](BusCall& call, PPT& view) {
        call.reply(formatSimpleJsonObject("slidecnt", view.slideCount()));
    });
}

// Both parameters are read before either is tested, the docid first. The caller
// hears of the change before it is shown.
bool jumpToSlide(HubHandle* handle, HubMessage* message, void* /*data*/) {
    BusCall call(handle, message);
    int docid = 0;
    int slide = 0;
    const bool hasDocid = json_get_int(call.payload(), "docid", &docid);
    const bool hasSlide = json_get_int(call.payload(), "slide", &slide);
    if (!hasDocid || !hasSlide) {
        call.replyError(kParamFailed, hasDocid ? "failed to get slide number" : kNoDocid);
        return true;
    }
    withDocumentOf<PPT>(call, docid, kWrongKind, [&](PPT& view) {
        call.reply(formatSimpleJsonObject("slideNumber", view.jumpToSlide(slide)));
        view.InvalidateScreen();
    });
    return true;
}

// Without an orientation the view goes to and fro.
bool fitWideMode(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return slideMethod(handle, message, [](BusCall& call, PPT& view) {
        const char* orientation = nullptr;
        json_get_string(call.payload(), "orientation", &orientation);
        view.setFitWideMode(orientation);
        call.replyDone();
    });
}

bool getSlideNote(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return slideMethod(handle, message, [](BusCall& call, PPT& view) { call.reply(view.getSlideNote()); });
}

bool getSlideList(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return slideMethod(handle, message, [](BusCall& call, PPT& view) { call.reply(view.getSlideList()); });
}

} // namespace

const HubMethod pptMethods[] = {
    {"getSlideCount", getSlideCount, 0}, {"jumpToSlide", jumpToSlide, 0},   {"fitWideMode", fitWideMode, 0},
    {"getSlideNote", getSlideNote, 0},   {"getSlideList", getSlideList, 0}, {nullptr, nullptr, 0},
};
