// SPDX-License-Identifier: Apache-2.0
// The category "/events": opening and closing documents, and input that gets a
// reply.
#include "service/CreateMethods.h"
#include "service/DocumentMethod.h"
#include "service/IdleClock.h"
#include "service/MethodTables.h"

namespace {

// Only sets the idle clock, which keeps the service alive. Sends no reply.
bool ping(HubHandle* /*handle*/, HubMessage* /*message*/, void* /*data*/) {
    prvUpdateTimer();
    return true;
}

// Passes a click to the view and notifies the client if the view did not use it.
void click(OfficeBase& view, int x, int y) {
    if (!withViewLocked(view, [&] { return view.handleClick(x, y); })) {
        view.SendDocMessage(_CLICK_UNUSED);
    }
}

} // namespace

// Pen and key methods have no Invalidate step: their effect shows at the next
// paint. handleDoubleClick locks the view's mutex itself.
// clang-format off
const HubMethod eventMethods[] = {
    {"create",            create, 0},
    {"destroy",           destroy, 0},
    {"ping",              ping, 0},
    {"handlePenUp",       method<OfficeBase, Point, Call<&OfficeBase::handlePenUp>, ReplyDone>, 0},
    {"handlePenDown",     method<OfficeBase, Point, Call<&OfficeBase::handlePenDown>, ReplyDone>, 0},
    {"handlePenMove",     method<OfficeBase, Point, Call<&OfficeBase::handlePenMove>, ReplyDone>, 0},
    {"handleKeyUp",       method<OfficeBase, KeyPress, Call<&OfficeBase::handleKeyUp>, ReplyDone>, 0},
    {"handleKeyDown",     method<OfficeBase, KeyPress, Call<&OfficeBase::handleKeyDown>, ReplyDone>, 0},
    {"handleClick",       method<OfficeBase, Point, Call<click>, Invalidate, ReplyDone>, 0},
    {"handleFlick",       method<OfficeBase, Point, CallLocked<&OfficeBase::handleFlick>, Invalidate, ReplyDone>, 0},
    {"handleDoubleClick", method<OfficeBase, Point, Call<&OfficeBase::handleDoubleClick>, Invalidate, ReplyDone>, 0},
    {nullptr, nullptr, 0},
};
// clang-format on
