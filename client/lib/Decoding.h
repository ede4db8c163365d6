// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/ViewEvents.h>

namespace lectern {

// Calls what is to be called for a notification.
void tell(const ViewEvents& events, const ViewRecord& record);

} // namespace lectern
