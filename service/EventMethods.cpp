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

// Tells the client of a click that the view had no use for.
void click(OfficeBase& view, int x, int y) {
    if (!withViewLocked(view, [&] { return view.handleClick(x, y); })) {
        view.SendDocMessage(_CLICK_UNUSED);
    }
}

} // namespace

// Pens and keys change nothing at once, and a double click takes the view's
// mutex itself.
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
