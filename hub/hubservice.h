/* SPDX-License-Identifier: Apache-2.0 */
/*
 * libhubservice: services on the message bus.
 *
 * A service registers a name and, under it, categories of methods. A method
 * receives one text, the payload, and replies with one text. On D-Bus the
 * service is a well-known name. A category such as "/events" is the object
 * /events with the interface NAME.events. A method takes one string and returns
 * one string.
 *
 * Call the functions in this order:
 *
 *     HubRegister
 *     HubRegisterCategory, once for each category
 *     HubGmainAttach
 *     g_main_loop_run
 *
 * The name appears on the bus when all categories exist, so the call that
 * started the process finds its method.
 *
 * Threads: call every function on the thread that runs the main loop. Handlers
 * run on that thread, one after the other, in the order in which the bus
 * delivers the calls. If a handler runs the main loop, other handlers run
 * inside it.
 *
 * Errors: functions return true on success. On failure they return false and
 * store a code and a message in *error, releasing the previous message. The
 * error argument may be null.
 *
 * Loss of the bus: when the connection is lost, the library quits the attached
 * loops, because no more calls can arrive. It never ends the process.
 */
#ifndef HUBSERVICE_H
#define HUBSERVICE_H

#include <glib.h>
#include <stdbool.h>
#include <stdio.h>

#ifdef __cplusplus
extern "C" {
#endif

#define HUB_EXPORT __attribute__((visibility("default")))

enum {
    HUB_ERROR_NONE = 0,
    HUB_ERROR_INVALID = 1,    /* an argument is null or malformed */
    HUB_ERROR_BUS = 2,        /* the bus cannot be reached or refused a request */
    HUB_ERROR_NAME_TAKEN = 3, /* another process owns the name */
    HUB_ERROR_REPLIED = 4     /* the call already has its reply */
};

/* Initialise with HubErrorInit, release with HubErrorFree. Without an error,
 * code is 0 and message is null. The HubError owns its message. */
typedef struct {
    int code;
    char* message;
} HubError;

typedef struct HubHandle HubHandle;   /* a registered service */
typedef struct HubMessage HubMessage; /* a call; valid while its handler runs */

/* Handles one call. data is always null. Returns true if it handled the call.
 * If it sent no reply, the caller gets a D-Bus error at once:
 *   returned true     org.freedesktop.DBus.Error.NoReply
 *   returned false    org.freedesktop.DBus.Error.Failed
 * A caller that asked for no reply gets neither a reply nor an error. */
typedef bool (*HubMethodHandler)(HubHandle* handle, HubMessage* message, void* data);

/* One entry of a method table. The last entry of a table is all zero. */
typedef struct {
    const char* name; /* letters, digits and underscores, not beginning with a digit */
    HubMethodHandler handler;
    unsigned int flags; /* 0 */
} HubMethod;

typedef struct {
    const char* name;
    unsigned int flags; /* 0 */
} HubSignal;

typedef struct {
    const char* name;
    unsigned int flags; /* 0 */
} HubProperty;

/* Initialises an error. Returns false if error is null. */
HUB_EXPORT bool HubErrorInit(HubError* error);
/* Releases the message and resets the error for reuse. */
HUB_EXPORT void HubErrorFree(HubError* error);
/* Writes the message as one line, or nothing if there is no error. */
HUB_EXPORT void HubErrorPrint(const HubError* error, FILE* stream);

/* Connects to the bus that started the process (DBUS_STARTER_ADDRESS, else
 * DBUS_STARTER_BUS_TYPE), or else to the session bus. Fails if the name has an
 * owner. HubGmainAttach takes the name later. Calls arrive in the default main
 * context of the calling thread.
 *
 * On success *handle is valid until the process ends and belongs to the
 * library; on failure it is null. When the process ends by exit() or by
 * returning from main(), replies that are not sent yet are sent first. */
HUB_EXPORT bool HubRegister(const char* name, HubHandle** handle, HubError* error);

/* Adds a category. Its name is a slash and elements of letters, digits and
 * underscores, separated by slashes. The library does not copy the method
 * table: keep it until the process ends. Pass null or empty tables as signals
 * and properties, which the library does not support. On failure the category
 * is not added. */
HUB_EXPORT bool HubRegisterCategory(HubHandle* handle, const char* category, const HubMethod* methods,
                                    const HubSignal* signals, const HubProperty* properties, HubError* error);

/* Takes the name, and serves the handle's calls while the loop runs. The loop
 * must belong to the main context that HubRegister used. Call it once for each
 * handle; after a failure it can be repeated. Calls that arrive before the loop
 * runs wait for it. Fails if another process owns the name by now. The library
 * keeps a reference to the loop, to quit it when the connection is lost. */
HUB_EXPORT bool HubGmainAttach(HubHandle* handle, GMainLoop* loop, HubError* error);

/* Returns the call's payload: UTF-8, never null, owned by the message. */
HUB_EXPORT const char* HubMessageGetPayload(HubMessage* message);

/* Returns the caller's unique name on the bus, such as ":1.42": never null, owned by the
 * message. Empty on a connection without a bus. */
HUB_EXPORT const char* HubMessageGetSender(HubMessage* message);

/* Replies to a call. Allowed once, while its handler runs. D-Bus carries only
 * valid UTF-8, so the library drops an incomplete character at the end of the
 * payload and replaces every other invalid byte by U+FFFD. The payload is
 * copied. */
HUB_EXPORT bool HubMessageReply(HubHandle* handle, HubMessage* message, const char* payload, HubError* error);

#ifdef __cplusplus
}
#endif
#endif
