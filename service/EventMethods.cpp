// SPDX-License-Identifier: Apache-2.0
// The category "/events": opening and closing, and input that is answered.
#include "service/CreateMethods.h"
#include "service/DocumentMethod.h"
#include "service/IdleClock.h"
#include "service/MethodTables.h"

namespace {

// Keeps the service alive, and that is all: no answer.
bool ping(HubHandle* /*handle*/, HubMessage* /*message*/, void* /*data*/) {
    prvUpdateTimer();
    return true;
}

// A handler for input of two numbers at a place: operation(call, view, x, y).
template<typename Operation>
bool pointMethod(HubHandle* handle, HubMessage* message, Operation operation) {
    BusCall call(handle, message);
    int docid = 0;
    int x = 0;
    int y = 0;
    if (readParameters(call, {{"docid", &docid}, {"xCoord", &x}, {"yCoord", &y}}, kNoParameter)) {
        withDocument(call, docid, [&](OfficeBase& view) { operation(call, view, x, y); });
    }
    return true;
}

using InputHandler = bool (OfficeBase::*)(int, int);

// Input that changes nothing at once.
bool penMethod(HubHandle* handle, HubMessage* message, InputHandler input) {
    return pointMethod(handle, message, [input](BusCall& call, OfficeBase& view, int x, int y) {
        (view.*input)(x, y);
        call.replyDone();
    });
}

bool keyMethod(HubHandle* handle, HubMessage* message, InputHandler input) {
    BusCall call(handle, message);
    int key = 0;
    int modifiers = 0;
    int docid = 0;
    if (readParameters(call, {{"chr", &key}, {"modifiers", &modifiers}, {"docid", &docid}}, kNoParameter)) {
        withDocument(call, docid, [&](OfficeBase& view) {
            (view.*input)(key, modifiers);
            call.replyDone();
        });
    }
    return true;
}

bool handlePenUp(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return penMethod(handle, message, &OfficeBase::handlePenUp);
}

bool handlePenDown(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return penMethod(handle, message, &OfficeBase::handlePenDown);
}

bool handlePenMove(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return penMethod(handle, message, &OfficeBase::handlePenMove);
}

bool handleKeyUp(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return keyMethod(handle, message, &OfficeBase::handleKeyUp);
}

bool handleKeyDown(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return keyMethod(handle, message, &OfficeBase::handleKeyDown);
}

bool handleClick(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return pointMethod(handle, message, [](BusCall& call, OfficeBase& view, int x, int y) {
        if (!withViewLocked(view, [&] { return view.handleClick(x, y); })) {
            view.SendDocMessage(_CLICK_UNUSED);
        }
        view.InvalidateScreen();
        call.replyDone();
    });
}

bool handleFlick(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return pointMethod(handle, message, [](BusCall& call, OfficeBase& view, int vx, int vy) {
        withViewLocked(view, [&] { return view.handleFlick(vx, vy); });
        view.InvalidateScreen();
        call.replyDone();
    });
}

bool handleDoubleClick(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return pointMethod(handle, message, [](BusCall& call, OfficeBase& view, int x, int y) {
        view.handleDoubleClick(x, y); // takes the view's mutex itself
        view.InvalidateScreen();
        call.replyDone();
    });
}

} // namespace

const HubMethod eventMethods[] = {
    {"create", create, 0},
    {"destroy", destroy, 0},
    {"ping", ping, 0},
    {"handlePenUp", handlePenUp, 0},
    {"handlePenDown", handlePenDown, 0},
    {"handlePenMove", handlePenMove, 0},
    {"handleKeyUp", handleKeyUp, 0},
    {"handleKeyDown", handleKeyDown, 0},
    {"handleClick", handleClick, 0},
    {"handleFlick", handleFlick, 0},
    {"handleDoubleClick", handleDoubleClick, 0},
    {nullptr, nullptr, 0},
};
