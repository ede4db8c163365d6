// SPDX-License-Identifier: Apache-2.0
// The messages of the bus, and the errors of calls that fail.
#pragma once

#include "base/GLibHolder.h"
#include <lectern/Bus.h>

#include <gio/gio.h>

#include <string>

namespace lectern {

// Creates a call of the service's method, for example ("/common", "Search");
// the category is both object path and interface. Returns null when the payload
// is not valid UTF-8.
GLibHolder<GDBusMessage> makeCall(const char* category, const char* method, const std::string& payload,
                                  const std::string& destination);

// The error for a payload that makeCall refuses.
Error notBusText();

// Returns a reply's text, or the error that it reports, which is the bus's or
// the service's.
Result<Reply> readReply(GDBusMessage* reply, const char* method);

// The error for a failed attempt to call a method.
Error busError(GError* failure, const char* method);

// Sends the bus itself a call without waiting for its answer. Returns the call's serial
// number; 0 when the connection is lost.
uint32_t postToDaemon(GDBusConnection* connection, const char* method, const std::string& argument);

// Calls a method of the bus itself; returns null when that fails.
GLibHolder<GVariant> askDaemon(GDBusConnection* connection, const char* method, GVariant* arguments,
                               const char* replyType);

} // namespace lectern
