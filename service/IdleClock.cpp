// SPDX-License-Identifier: Apache-2.0
#include "service/IdleClock.h"

#include "service/Opening.h"

#include <syslog.h>

#include <ctime>

int32_t gLastActive = 0;
GMainLoop* g_mainloop = nullptr;

void prvUpdateTimer() {
    gLastActive = static_cast<int32_t>(time(nullptr));
}

gboolean prvCheckTimeout(void* /*data*/) {
    if (hasOpenings()) {
        prvUpdateTimer(); // an open may take longer than IDLE_SECONDS
    }
    // Unsigned subtraction, so that the difference is right also when the 32-bit
    // seconds overflow in 2038.
    const auto idle =
        static_cast<int32_t>(static_cast<uint32_t>(time(nullptr)) - static_cast<uint32_t>(gLastActive));
    if (gLastActive == 0 || idle > IDLE_SECONDS) {
        g_main_loop_quit(g_mainloop);
        syslog(LOG_INFO, "Stopping LecternServer: timeout");
    }
    return TRUE;
}
