// SPDX-License-Identifier: Apache-2.0
// What D-Bus tools are told about a category.
#pragma once

#include "hub/hubservice.h"

#include <gio/gio.h>

#include <string>
#include <vector>

namespace hub {

// The description of an interface whose methods are those of a table, each with
// one string "payload" in and one string "reply" out. GLib keeps pointers into
// it while the interface is exported; so it stays where it was made.
class InterfaceDescription {
public:
    // REQUIRES: a valid interface name, and a table that findTableFault passes.
    // The table must outlive the description.
    InterfaceDescription(std::string name, const HubMethod* methods);
    InterfaceDescription(const InterfaceDescription&) = delete;
    InterfaceDescription& operator=(const InterfaceDescription&) = delete;

    GDBusInterfaceInfo* info() { return &mInfo; }

private:
    std::string mName;
    std::vector<GDBusMethodInfo> mMethods;
    std::vector<GDBusMethodInfo*> mMethodList; // null at its end
    GDBusInterfaceInfo mInfo{};
};

// What is wrong with a method table, or an empty text.
std::string findTableFault(const HubMethod* methods);

} // namespace hub
