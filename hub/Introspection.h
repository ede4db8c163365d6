// SPDX-License-Identifier: Apache-2.0
// The introspection data of a category, which GDBus needs and D-Bus tools show.
#pragma once

#include "hub/hubservice.h"

#include <gio/gio.h>

#include <string>
#include <vector>

namespace hub {

// Describes an interface with the methods of a table. Each method has one string
// argument "payload" in and one string "reply" out. GLib keeps pointers into the
// description while the interface is exported, so it can be neither copied nor
// moved.
class InterfaceDescription {
public:
    // REQUIRES: the interface name is valid, findTableFault() finds nothing wrong
    // with the table, and the table outlives the description.
    InterfaceDescription(std::string name, const HubMethod* methods);
    InterfaceDescription(const InterfaceDescription&) = delete;
    InterfaceDescription& operator=(const InterfaceDescription&) = delete;

    GDBusInterfaceInfo* info() { return &mInfo; }

private:
    std::string mName;
    std::vector<GDBusMethodInfo> mMethods;
    std::vector<GDBusMethodInfo*> mMethodList; // terminated by null
    GDBusInterfaceInfo mInfo{};
};

// Returns a description of the first fault in a method table, or an empty text.
std::string findTableFault(const HubMethod* methods);

} // namespace hub
