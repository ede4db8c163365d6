// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"

#include <gio/gio.h>

namespace lectern {

// The calls that an object waits for. Its end cancels them, and their callbacks then do
// not reach the object any more:
//
//     lectern_document_get_note_async(document, mPending.get(), asyncDone<&Notes::show>, this);
//
// calls this->show(document, result) unless `this` has gone; a member function
// `void show(GObject*, GAsyncResult*)`. REQUIRES: the operation ends with a GTask.
class Pending {
public:
    Pending() : mCancellable(g_cancellable_new()) {}
    ~Pending() { g_cancellable_cancel(mCancellable.get()); }
    Pending(const Pending&) = delete;
    Pending& operator=(const Pending&) = delete;

    GCancellable* get() const { return mCancellable.get(); }
    // Gives up all calls so far.
    void giveUp() {
        g_cancellable_cancel(mCancellable.get());
        mCancellable.reset(g_cancellable_new());
    }

private:
    GLibHolder<GCancellable> mCancellable;
};

template<typename>
struct MemberOf;
template<typename Class, typename... Arguments>
struct MemberOf<void (Class::*)(Arguments...)> {
    using Type = Class;
};

// A GAsyncReadyCallback for a member function; see Pending.
template<auto member>
void asyncDone(GObject* source, GAsyncResult* result, void* self) {
    using Object = typename MemberOf<decltype(member)>::Type;
    GCancellable* cancellable = g_task_get_cancellable(G_TASK(result));
    if (cancellable == nullptr || g_cancellable_is_cancelled(cancellable) == FALSE) {
        (static_cast<Object*>(self)->*member)(source, result);
    }
}

// A handler for g_signal_connect_swapped that calls a member function without arguments:
//
//     g_signal_connect_swapped(entry, "activate", G_CALLBACK(onSignal<&SearchBar::search>), this);
template<auto member>
void onSignal(void* self) {
    (static_cast<typename MemberOf<decltype(member)>::Type*>(self)->*member)();
}

} // namespace lectern
