// SPDX-License-Identifier: Apache-2.0
// The idle timeout: the service ends when no bus method was called for a while.
// Main thread only.
#pragma once

#include <glib.h>

#include <cstdint>

// The time of the last bus call, in wall-clock seconds. 0 means that there was
// none and counts as timed out.
extern int32_t gLastActive;
// The main loop of the service, which ends the service when it quits.
extern GMainLoop* g_mainloop;

// The service ends after more than this without a bus call...
inline constexpr int IDLE_SECONDS = 30;
// ...at the next check. This is the time between two checks.
inline constexpr unsigned int CHECK_SECONDS = 4;

// Sets gLastActive to now. Every handler calls it at its start and at its end,
// because opening a document may take longer than IDLE_SECONDS.
void prvUpdateTimer();
// The check, a GLib timeout callback: quits the loop if the service has been idle
// for too long. Always returns TRUE, which keeps the timeout.
gboolean prvCheckTimeout(void* data);
