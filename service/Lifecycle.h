// SPDX-License-Identifier: Apache-2.0
#pragma once

// The service's whole life: registers on the bus, serves until it is told to
// stop or has been idle for long enough, and stops in order. The process' exit
// status: 0 after such a stop, -1 when the bus, a thread or the message queue's
// ownership could not be had, the error number when the registry's mutex could
// not be made.
int runService();
