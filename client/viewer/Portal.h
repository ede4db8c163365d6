// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Pending.h"

#include <gio/gio.h>
#include <gio/gunixfdlist.h>

#include <functional>
#include <string>

namespace lectern::viewer {

// Asks the portal of the desktop for something that a person answers in a dialog, one
// request at a time.
class Portal {
public:
    enum class Answer { Granted, Refused, NoPortal };
    // results: of the portal's signal "Response"; null without a portal.
    using Done = std::function<void(Answer answer, GVariant* results)>;

    Portal() = default;
    ~Portal() { forget(); }
    Portal(const Portal&) = delete;
    Portal& operator=(const Portal&) = delete;

    // The option "handle_token" of the next request, which its parameters must contain.
    const char* newToken();
    // Calls a method of the interface org.freedesktop.portal.NAME. parameters: floating.
    // descriptors: what handles among the parameters stand for, or null.
    void request(const char* name, const char* method, GVariant* parameters, GUnixFDList* descriptors,
                 Done done);

private:
    static void onResponse(GDBusConnection* bus, const char* sender, const char* path, const char* interface,
                           const char* signal, GVariant* parameters, void* self);
    void called(GObject* bus, GAsyncResult* result);
    void listen();
    void end(Answer answer, GVariant* results);
    void forget();

    GLibHolder<GDBusConnection> mBus;
    guint mSubscription = 0;
    std::string mToken;
    Pending mPending;
    Done mDone;
};

} // namespace lectern::viewer
