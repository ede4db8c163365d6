// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "channel/DocAdapterCommon.h"

#include <pthread.h>

// The main function of the worker thread: serves the message queue, together with the
// standby threads of service/QueueReaders.h, until the queue
// is removed, the registry cannot be locked, a paint-done record cannot be sent, or
// the thread is cancelled. It is not restarted; bus methods still work without it.
//
// Cancellation is enabled only while the thread waits for a record and in the test
// before that, so that it never interrupts a view or leaves a lock held.
void* server_func(void* arg);

// Blocks until the worker has opened the queue and thrown away the records that an
// earlier run left there. Records sent after that are kept.
void awaitWorkerReady();

// Handles one client record: locks the registry, finds the document, passes the
// record to its view and answers a paint request. A record for a document that another
// thread uses is deferred, so that other documents do not wait. False if the worker must end.
bool serveMessage(const ClientServerMessage& message);
