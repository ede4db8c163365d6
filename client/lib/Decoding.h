// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/ViewEvents.h>

namespace lectern {

// Calls the event callback that belongs to a notification.
void tell(const ViewEvents& events, const ViewRecord& record);

} // namespace lectern
