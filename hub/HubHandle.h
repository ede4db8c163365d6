// SPDX-License-Identifier: Apache-2.0
// A registered service and its categories.
#pragma once

#include "base/GLibHolder.h"
#include "hub/Introspection.h"
#include "hub/hubservice.h"

#include <gio/gio.h>

#include <memory>
#include <string>
#include <vector>

namespace hub {

// One exported object with its one interface.
struct Category {
    Category(HubHandle* owner, const HubMethod* table, std::string interfaceName)
        : handle(owner), methods(table), interface(std::move(interfaceName), table) {}

    HubHandle* handle;
    const HubMethod* methods;
    InterfaceDescription interface;
};

} // namespace hub

// Created by HubRegister and never destroyed: the connection lives as long as the
// process, and GDBus may call into the categories all that time.
struct HubHandle {
    HubHandle(const char* serviceName, lectern::GLibHolder<GDBusConnection> bus)
        : name(serviceName), connection(std::move(bus)), context(g_main_context_ref_thread_default()) {}

    std::string name;
    lectern::GLibHolder<GDBusConnection> connection;
    lectern::GLibHolder<GMainContext> context; // where GDBus delivers the calls
    std::vector<std::unique_ptr<hub::Category>> categories;
    bool attached = false;
};
