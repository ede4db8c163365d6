// SPDX-License-Identifier: Apache-2.0
// The category "/ppt": no method so far, as there is no view of the kind.
#include "service/MethodTables.h"

const HubMethod pptMethods[] = {
    {nullptr, nullptr, 0},
};
