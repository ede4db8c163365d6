// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Pending.h"
#include "client/viewer/Ui.h"

namespace lectern::viewer {

// A function of C that calls a member function with arguments of a signal.
template<auto member>
struct Handler;
template<typename Class, typename... Arguments, void (Class::*member)(Arguments...)>
struct Handler<member> {
    static void call(Class* self, Arguments... arguments) { (self->*member)(arguments...); }
};

// For connections of signals whose arguments the member function takes, or the first of
// them; onSignal is for member functions that take none.
template<auto member>
GCallback handler() {
    return G_CALLBACK(&Handler<member>::call);
}

// A part of the window that follows the window's document.
class Part {
public:
    explicit Part(Shell& shell);
    virtual ~Part();
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;

    // Tells the user why a call failed, except of calls that were given up.
    void complain(const GError* error) const;

protected:
    // Called with a document when it has opened, and with null when it is closed or
    // another one is being opened. Calls to the document before are given up.
    virtual void show(LecternDocument* document) = 0;

    Shell& shell() const { return mShell; }
    // The document if it is open, else null.
    LecternDocument* document() const { return mShell.document(); }

    // Calls the member function at each such signal of the document, also before it is open.
    template<auto member>
    void onDocument(const char* signal, typename MemberOf<decltype(member)>::Type* self) {
        g_signal_group_connect_swapped(mDocumentSignals.get(), signal, handler<member>(), self);
    }
    template<auto member>
    GSimpleAction* addAction(const char* name, typename MemberOf<decltype(member)>::Type* self) {
        return viewer::addAction(mShell.actions(), name, G_CALLBACK(onSignal<member>), self);
    }
    // An action that is on or off, first off. The member function is called after each change.
    template<auto member>
    GSimpleAction* addToggle(const char* name, typename MemberOf<decltype(member)>::Type* self) {
        GSimpleAction* toggle = addToggle(name);
        g_signal_connect_swapped(toggle, "notify::state", G_CALLBACK(onSignal<member>), self);
        return toggle;
    }

    Pending mPending;

private:
    void update();
    GSimpleAction* addToggle(const char* name);

    Shell& mShell;
    GLibHolder<GSignalGroup> mDocumentSignals;
};

// A GAsyncReadyCallback as asyncDone, for a call of the document with mPending: passes the
// value that it replied to a member function, which owns it then, or complains.
template<auto finish, auto member>
void answered(GObject* source, GAsyncResult* result, void* self) {
    auto* part = static_cast<typename MemberOf<decltype(member)>::Type*>(self);
    if (g_cancellable_is_cancelled(g_task_get_cancellable(G_TASK(result))) == FALSE) {
        GLibHolder<GError> error;
        auto* value = finish(LECTERN_DOCUMENT(source), result, out(error));
        value != nullptr ? (part->*member)(value) : part->complain(error.get());
    }
}

// The same for a call without a value, of a part of this class.
template<auto finish, typename Class>
void done(GObject* source, GAsyncResult* result, void* self) {
    GLibHolder<GError> error;
    if (g_cancellable_is_cancelled(g_task_get_cancellable(G_TASK(result))) == FALSE &&
        finish(LECTERN_DOCUMENT(source), result, out(error)) == FALSE) {
        static_cast<Class*>(self)->complain(error.get());
    }
}

bool isOn(GSimpleAction* toggle);
void setOn(GSimpleAction* toggle, bool isOn);

} // namespace lectern::viewer
