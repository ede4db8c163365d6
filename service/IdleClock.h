// SPDX-License-Identifier: Apache-2.0
// The service ends by itself when no bus method was called for a while. All on
// the main thread.
#pragma once

#include <glib.h>

#include <cstdint>

// Wall-clock seconds of the last bus call; 0 is never, and long ago.
extern int32_t gLastActive;
// The loop that the service runs in; quit when it is to end.
extern GMainLoop* g_mainloop;

// Idle for more than this ends the service...
inline constexpr int IDLE_SECONDS = 30;
// ...at the next of the checks, which are this far apart.
inline constexpr unsigned int CHECK_SECONDS = 4;

// Sets the clock to now. Every handler does, at its start and, because an open
// may take longer than an idle service has, at its end.
void prvUpdateTimer();
// The check, a glib timeout: quits the loop when the time is up. Always true.
gboolean prvCheckTimeout(void* data);
