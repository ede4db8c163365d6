// SPDX-License-Identifier: Apache-2.0
// What crosses the bus, and what it means when it does not.
#pragma once

#include "base/GLibHolder.h"
#include <lectern/Bus.h>

#include <gio/gio.h>

#include <string>

namespace lectern {

// A call of the service's method ("/common", "Search"): the category is an
// object path and an interface. Null when the payload is not valid UTF-8.
GLibHolder<GDBusMessage> makeCall(const char* category, const char* method, const std::string& payload,
                                  const std::string& destination);

// The error for a payload that makeCall refuses.
Error notBusText();

// A reply's text, or the error that it tells: of the bus or of the service.
Result<Reply> readReply(GDBusMessage* reply, const char* method);

// The error for a failed attempt to call a method.
Error busError(GError* failure, const char* method);

// Calls a method of the bus itself; null when it has no answer.
GLibHolder<GVariant> askDaemon(GDBusConnection* connection, const char* method, GVariant* arguments,
                               const char* replyType);

} // namespace lectern
