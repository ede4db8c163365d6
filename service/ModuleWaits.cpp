// SPDX-License-Identifier: Apache-2.0
#include "service/ModuleWaits.h"

#include "service/QueueReaders.h"
#include "service/Registry.h"

void beginModuleWait() {
    if (RegistryLock::suspend()) {
        gQueueReaders.waitBegins();
    }
}

void endModuleWait() {
    gQueueReaders.waitEnds();
    RegistryLock::resume();
}
