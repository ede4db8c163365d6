// SPDX-License-Identifier: Apache-2.0
// The category "/touch": methods for documents that were opened with touch manners.
#include "service/DocumentMethod.h"
#include "service/FrameBuffer.h"
#include "service/MethodTables.h"
#include "service/TouchDocuments.h"
#include "service/TouchKind.h"
#include "service/TouchParameters.h"
#include "service/TouchReplies.h"
#include "touch/TouchView.h"

namespace {

void replyFailure(BusCall& call, TouchResult result) {
    switch (result) {
    case TouchResult::NothingThere:
        call.replyError(NOTHING_THERE, NOTHING_THERE_TEXT);
        break;
    case TouchResult::OutOfRange:
        call.replyError(OUT_OF_RANGE, OUT_OF_RANGE_TEXT);
        break;
    case TouchResult::NotSupported:
        call.replyError("errNotSupported", "not supported for this document");
        break;
    case TouchResult::NotWritable:
        call.replyError("errNotWritable", "the file cannot be written");
        break;
    default:
        call.replyError("errFailed", "the document could not do it");
        break;
    }
}

// The handler of a method. The operation adds members to the reply; without any the
// reply is {"returnValue": true}. Always returns true.
template<typename Parameters, TouchResult (*operation)(TouchView&, const Parameters&, json_object*)>
bool touchMethod(HubHandle* handle, HubMessage* message, void* /*data*/) {
    BusCall call(handle, message);
    Parameters parameters;
    if (!parameters.read(call)) {
        return true;
    }
    withDocument<TouchView>(call, parameters.docid, [&](TouchView& view) {
        const JsonOwner reply(json_object_new_object());
        if (reply == nullptr) {
            return;
        }
        const TouchResult result = operation(view, parameters, reply.get());
        if (result != TouchResult::Ok) {
            replyFailure(call, result);
        } else if (json_object_object_length(reply.get()) == 0) {
            call.replyDone();
        } else {
            call.reply(jsonText(reply));
        }
    });
    return true;
}

TouchResult getView(TouchView& view, const TouchDocid& /*parameters*/, json_object* reply) {
    addPlace(reply, view.place());
    return TouchResult::Ok;
}

TouchResult scrollTo(TouchView& view, const TouchPoint& parameters, json_object* /*reply*/) {
    view.scrollTo(parameters.point.x, parameters.point.y);
    return TouchResult::Ok;
}

TouchResult zoomTo(TouchView& view, const TouchZoom& parameters, json_object* /*reply*/) {
    view.zoomTo(parameters.zoom, parameters.hasPoint ? parameters.point : view.middle());
    return TouchResult::Ok;
}

TouchResult getLink(TouchView& view, const TouchDocid& /*parameters*/, json_object* reply) {
    json_object_object_add(reply, "link", json_object_new_string(view.lastLink().c_str()));
    return TouchResult::Ok;
}

// Adds the hit that a search or a step has led to.
TouchResult replyHit(TouchResult result, const HitPlace& hit, json_object* reply) {
    if (result == TouchResult::Ok) {
        addHit(reply, hit);
    }
    return result;
}

TouchResult search(TouchView& view, const TouchSearch& parameters, json_object* reply) {
    HitPlace hit;
    return replyHit(view.search(parameters.text, parameters.options, hit), hit, reply);
}

template<int step>
TouchResult stepToHit(TouchView& view, const TouchDocid& /*parameters*/, json_object* reply) {
    HitPlace hit;
    return replyHit(view.stepToHit(step, hit), hit, reply);
}

TouchResult select(TouchView& view, const TouchSelect& parameters, json_object* /*reply*/) {
    return parameters.movesEnd ? view.moveSelectionEnd(parameters.end, parameters.point)
                               : view.select(parameters.unit, parameters.point);
}

// Adds what an operation of the view answers.
template<typename Answer, TouchResult (TouchView::*ask)(Answer&), void (*add)(json_object*, const Answer&)>
TouchResult answer(TouchView& view, const TouchDocid& /*parameters*/, json_object* reply) {
    Answer told;
    const TouchResult result = (view.*ask)(told);
    if (result == TouchResult::Ok) {
        add(reply, told);
    }
    return result;
}

constexpr auto getSelection = answer<Selection, &TouchView::selection, addSelection>;
constexpr auto getText = answer<std::vector<TextLine>, &TouchView::visibleText, addLines>;
constexpr auto getOutline = answer<std::vector<OutlineEntry>, &TouchView::outline, addOutline>;

TouchResult goTo(TouchView& view, const TouchEntry& parameters, json_object* /*reply*/) {
    return view.goTo(parameters.entry);
}

TouchResult getCell(TouchView& view, const TouchCell& parameters, json_object* reply) {
    Cell cell;
    const TouchResult result = view.cell(parameters.column, parameters.row, cell);
    if (result == TouchResult::Ok) {
        addCell(reply, cell);
    }
    return result;
}

TouchResult exportTo(TouchView& view, const TouchExport& parameters, json_object* /*reply*/) {
    return view.exportTo(parameters.format, parameters.path);
}

TouchResult getThumbnail(TouchView& view, const TouchThumbnail& parameters, json_object* /*reply*/) {
    const char* problem = nullptr;
    const std::optional<FrameBuffer> picture =
        FrameBuffer::attach(parameters.shmid, parameters.width, parameters.height, parameters.size, problem);
    if (!picture) {
        return TouchResult::OutOfRange;
    }
    return view.thumbnail(parameters.part, picture->pixels(), parameters.width, parameters.height);
}

} // namespace

// clang-format off
const HubMethod touchMethods[] = {
    {"getView",        touchMethod<TouchDocid, getView>, 0},
    {"scrollTo",       touchMethod<TouchPoint, scrollTo>, 0},
    {"zoomTo",         touchMethod<TouchZoom, zoomTo>, 0},
    {"getLink",        touchMethod<TouchDocid, getLink>, 0},
    {"search",         touchMethod<TouchSearch, search>, 0},
    {"nextResult",     touchMethod<TouchDocid, stepToHit<1>>, 0},
    {"previousResult", touchMethod<TouchDocid, stepToHit<-1>>, 0},
    {"select",         touchMethod<TouchSelect, select>, 0},
    {"getSelection",   touchMethod<TouchDocid, getSelection>, 0},
    {"getText",        touchMethod<TouchDocid, getText>, 0},
    {"getOutline",     touchMethod<TouchDocid, getOutline>, 0},
    {"goTo",           touchMethod<TouchEntry, goTo>, 0},
    {"getCell",        touchMethod<TouchCell, getCell>, 0},
    {"getThumbnail",   touchMethod<TouchThumbnail, getThumbnail>, 0},
    {"export",         touchMethod<TouchExport, exportTo>, 0},
    {"resize",         resize, 0},
    {"cancel",         cancel, 0},
    {nullptr, nullptr, 0},
};
// clang-format on
