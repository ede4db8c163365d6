/* SPDX-License-Identifier: Apache-2.0 */
/* A whole service in C. "last" replies and ends the program. */
#include "hub/hubservice.h"

#include <unistd.h>

static GMainLoop* gLoop;

static bool echo(HubHandle* handle, HubMessage* message, void* data) {
    (void)data;
    HubMessageReply(handle, message, HubMessageGetPayload(message), NULL);
    return true;
}

static bool last(HubHandle* handle, HubMessage* message, void* data) {
    g_main_loop_quit(gLoop);
    return echo(handle, message, data);
}

/* The loop was not left in time; the exit status tells the waiting test. */
static gboolean giveUp(gpointer data) {
    (void)data;
    _exit(2);
}

static const HubMethod METHODS[] = {{"echo", echo, 0}, {"last", last, 0}, {NULL, NULL, 0}};

int main(void) {
    HubError error;
    HubHandle* handle = NULL;
    HubErrorInit(&error);
    gLoop = g_main_loop_new(NULL, FALSE);
    const bool ready = HubRegister("com.kestrel.hubtest", &handle, &error) &&
                       HubRegisterCategory(handle, "/events", METHODS, NULL, NULL, &error) &&
                       HubGmainAttach(handle, gLoop, &error);
    g_timeout_add_seconds(20, giveUp, NULL);
    if (ready) {
        g_main_loop_run(gLoop);
    }
    g_main_loop_unref(gLoop);
    HubErrorPrint(&error, stderr);
    HubErrorFree(&error);
    return ready ? 0 : 1;
}
