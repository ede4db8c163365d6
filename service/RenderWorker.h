// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "channel/DocAdapterCommon.h"

#include <pthread.h>

// The body of the worker thread: serves the message queue until the queue is
// removed, the registry cannot be locked, a paint cannot be reported, or the
// thread is cancelled. Nothing restarts it; bus methods work on without it.
//
// Cancellation is off but for the wait for a record and the test before it, so
// that a view or a lock is never left half done.
void* server_func(void* arg);

// Blocks until a worker has opened the queue and emptied it of what an earlier
// run left there: what is sent from then on stays.
void awaitWorkerReady();

// Handles one record of a client: locks the registry, finds the document, hands
// the record to its view, and answers a paint request. False when the worker
// is to end.
bool serveMessage(const ClientServerMessage& message);
