// SPDX-License-Identifier: Apache-2.0
// Registering a service and its categories.
#include "hub/BusConnection.h"
#include "hub/Dispatch.h"
#include "hub/Errors.h"
#include "hub/HubHandle.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace hub {
namespace {

std::vector<std::unique_ptr<HubHandle>>& allHandles() {
    // Never destroyed: handlers may still run on the loop's thread while another
    // thread calls exit().
    static auto* handles = new std::vector<std::unique_ptr<HubHandle>>;
    return *handles;
}

// GDBus sends messages on a thread of its own. Without this, exit() would drop the
// replies that it has not sent yet.
void sendWhatIsLeft() {
    for (const auto& handle : allHandles()) {
        g_dbus_connection_flush_sync(handle->connection.get(), nullptr, nullptr);
    }
}

HubHandle* keep(std::unique_ptr<HubHandle> handle) {
    [[maybe_unused]] static const int ONCE = std::atexit(sendWhatIsLeft);
    return allHandles().emplace_back(std::move(handle)).get();
}

template<typename Entry>
bool isEmptyTable(const Entry* table) {
    return table == nullptr || table->name == nullptr;
}

// The category "/events" of the service NAME has the interface NAME.events.
std::string interfaceOf(const std::string& service, std::string category) {
    std::replace(category.begin(), category.end(), '/', '.');
    return service + category;
}

void quitLoop(GDBusConnection*, gboolean, GError*, gpointer loop) {
    g_main_loop_quit(static_cast<GMainLoop*>(loop));
}

void releaseLoop(gpointer loop, GClosure*) {
    g_main_loop_unref(static_cast<GMainLoop*>(loop));
}

void quitOnLoss(GDBusConnection* connection, GMainLoop* loop) {
    g_signal_connect_data(connection, "closed", G_CALLBACK(quitLoop), g_main_loop_ref(loop), releaseLoop,
                          GConnectFlags{});
}

} // namespace
} // namespace hub

bool HubRegister(const char* name, HubHandle** handle, HubError* error) {
    if (handle == nullptr) {
        return hub::fail(error, HUB_ERROR_INVALID, "no place for the handle");
    }
    *handle = nullptr;
    if (name == nullptr || !g_dbus_is_name(name) || g_dbus_is_unique_name(name)) {
        return hub::fail(error, HUB_ERROR_INVALID,
                         std::string("not a service name: ") + (name != nullptr ? name : "null"));
    }

    lectern::GLibHolder<GDBusConnection> connection = hub::connectToBus(error);
    if (!connection || !hub::checkNameIsFree(connection.get(), name, error)) {
        return false;
    }
    *handle = hub::keep(std::make_unique<HubHandle>(name, std::move(connection)));
    return true;
}

bool HubRegisterCategory(HubHandle* handle, const char* category, const HubMethod* methods,
                         const HubSignal* signals, const HubProperty* properties, HubError* error) {
    if (handle == nullptr || category == nullptr || methods == nullptr) {
        return hub::fail(error, HUB_ERROR_INVALID, "a category needs a handle, a path and a method table");
    }
    const std::string path = category;
    const std::string interface = hub::interfaceOf(handle->name, path);
    if (!g_variant_is_object_path(category) || !g_dbus_is_interface_name(interface.c_str())) {
        return hub::fail(error, HUB_ERROR_INVALID, "not a category of " + handle->name + ": " + path);
    }
    if (!hub::isEmptyTable(signals) || !hub::isEmptyTable(properties)) {
        return hub::fail(error, HUB_ERROR_INVALID, path + ": signals and properties can't be served");
    }
    if (const std::string fault = hub::findTableFault(methods); !fault.empty()) {
        return hub::fail(error, HUB_ERROR_INVALID, path + ": " + fault);
    }

    auto added = std::make_unique<hub::Category>(handle, methods, interface);
    if (!hub::exportCategory(*added, category, error)) {
        return false;
    }
    handle->categories.push_back(std::move(added));
    return true;
}

bool HubGmainAttach(HubHandle* handle, GMainLoop* loop, HubError* error) {
    if (handle == nullptr || loop == nullptr) {
        return hub::fail(error, HUB_ERROR_INVALID, "attaching needs a handle and a loop");
    }
    if (handle->attached) {
        return hub::fail(error, HUB_ERROR_INVALID, handle->name + " is attached to a loop already");
    }
    if (g_main_loop_get_context(loop) != handle->context.get()) {
        return hub::fail(error, HUB_ERROR_INVALID,
                         "the loop does not run the main context that " + handle->name +
                             " was registered in");
    }

    if (!hub::takeName(handle->connection.get(), handle->name.c_str(), error)) {
        return false;
    }
    hub::quitOnLoss(handle->connection.get(), loop);
    handle->attached = true;
    return true;
}
