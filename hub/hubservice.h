/* SPDX-License-Identifier: Apache-2.0 */
/*
 * libhubservice: services on the message bus.
 *
 * A service registers a name and, under it, categories of methods. Each method
 * takes one text and answers with one text. On D-Bus the service is a
 * well-known name, a category "/events" the object path /events with the
 * interface NAME.events, and a method one string in, one string out.
 *
 *     HubRegister, HubRegisterCategory for each category, HubGmainAttach,
 *     g_main_loop_run
 *
 * in this order, so that everything is in place when the name appears on the
 * bus: a call that started the process is answered like any other.
 *
 * Threads: every function is called on the thread that runs the main loop, and
 * handlers are called on it, in the order of their calls. A handler that runs
 * the loop itself lets other handlers in.
 *
 * Errors: functions return true on success. On failure they return false and
 * put a code and a message into the error, which may be null; what the error
 * held before is released.
 *
 * Loss of the bus: an attached loop is quit when the connection is lost, since
 * no call can arrive any more; the process itself is never ended.
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
    HUB_ERROR_BUS = 2,        /* the bus can't be reached, or refused a request */
    HUB_ERROR_NAME_TAKEN = 3, /* the name has an owner */
    HUB_ERROR_REPLIED = 4     /* the call was answered already */
};

/* Made ready with HubErrorInit, released with HubErrorFree. code is 0 and
 * message null while there is no error; message is owned by the error. */
typedef struct {
    int code;
    char* message;
} HubError;

typedef struct HubHandle HubHandle;   /* a registered service */
typedef struct HubMessage HubMessage; /* a call; valid while its handler runs */

/* Serves one call; data is null. Returns true when the call was handled. What
 * the caller gets when the handler did not reply:
 *   returned true     D-Bus error org.freedesktop.DBus.Error.NoReply
 *   returned false    D-Bus error org.freedesktop.DBus.Error.Failed
 * A caller that asked for no reply gets nothing in any case. */
typedef bool (*HubMethodHandler)(HubHandle* handle, HubMessage* message, void* data);

/* Tables end with an all-zero entry. */
typedef struct {
    const char* name; /* letters, digits, underscores; no digit first */
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

/* Returns false only for null. */
HUB_EXPORT bool HubErrorInit(HubError* error);
/* Releases the message and makes the error ready again. */
HUB_EXPORT void HubErrorFree(HubError* error);
/* Writes one line; nothing when there is no error. */
HUB_EXPORT void HubErrorPrint(const HubError* error, FILE* stream);

/* Connects to the bus that started the process (DBUS_STARTER_ADDRESS, else
 * DBUS_STARTER_BUS_TYPE), else to the session's. Fails when the name has an
 * owner; the name itself is taken by HubGmainAttach. The calling thread's
 * default main context is the one that calls arrive in. The handle belongs to
 * the library and lives as long as the process; replies on their way are sent
 * before exit() ends it. On failure *handle is null. */
HUB_EXPORT bool HubRegister(const char* name, HubHandle** handle, HubError* error);

/* Adds a category: a slash, then elements of letters, digits and underscores,
 * parted by slashes. The methods' table must outlive the process's last call.
 * signals and properties are null or empty: there is no call that would send
 * or serve them. On failure nothing of the category is added. */
HUB_EXPORT bool HubRegisterCategory(HubHandle* handle, const char* category, const HubMethod* methods,
                                    const HubSignal* signals, const HubProperty* properties, HubError* error);

/* Takes the name and serves the handle from a loop of HubRegister's main
 * context, once per handle. Calls that arrive before the loop runs wait for
 * it. Fails when another process has the name by now. The library keeps a
 * reference to the loop, to quit it when the bus goes away. */
HUB_EXPORT bool HubGmainAttach(HubHandle* handle, GMainLoop* loop, HubError* error);

/* The call's text: UTF-8, never null, owned by the message. */
HUB_EXPORT const char* HubMessageGetPayload(HubMessage* message);

/* Answers a call, once, while its handler runs. The bus carries only UTF-8: a
 * character cut off at the text's end is left out, and each other byte that
 * belongs to no character becomes U+FFFD. */
HUB_EXPORT bool HubMessageReply(HubHandle* handle, HubMessage* message, const char* payload, HubError* error);

#ifdef __cplusplus
}
#endif
#endif
