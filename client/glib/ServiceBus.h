// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Bus.h>

#include <lectern-glib/lectern-service.h>

namespace lectern {

// The connection of a service object. Valid as long as the object.
const Bus& busOf(LecternService* service);

} // namespace lectern
