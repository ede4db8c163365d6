// SPDX-License-Identifier: Apache-2.0
#pragma once

// Runs the service: registers on the bus, serves until a signal stops it or the
// idle time is over, and shuts down in order. Returns the exit status of the
// process: 0 after an orderly shutdown, -1 if the bus, a thread or the ownership
// of the message queue is not available, or the error number if the registry's
// mutex cannot be created. Call it on the main thread, once.
int runService();
