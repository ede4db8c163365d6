// SPDX-License-Identifier: Apache-2.0
#include "base/GLibHolder.h"
#include "base/Spawn.h"
#include "client/lib/IpcNamespace.h"
#include "client/lib/PrivateBus.h"
#include "client/lib/Programs.h"
#include <lectern/Service.h>

#include <gio/gio.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>

namespace lectern {

namespace {

bool offersService(const std::string& address) {
    const Result<Bus> bus = Bus::connect(address);
    return bus && bus->offersService();
}

// Lets the keeper's program ask the same. A connection would start threads in
// this process, and a process with threads cannot change its namespaces.
bool offersServiceAskedByOther(const std::string& address) {
    pid_t child = -1;
    return spawn({.path = findProgram("lectern-keeper", "LECTERN_KEEPER"),
                  .arguments = {"--offers", address},
                  .environment = {}},
                 child) == 0 &&
           waitForExit(child) == 0;
}

} // namespace

std::optional<std::string> sessionBusAddress() {
    if (const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
        address != nullptr && *address != '\0') {
        return address;
    }
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    if (folder == nullptr || *folder != '/') {
        return std::nullopt;
    }
    const std::string path = std::string(folder) + "/bus";
    struct stat status {};
    if (stat(path.c_str(), &status) != 0 || !S_ISSOCK(status.st_mode)) {
        return std::nullopt;
    }
    const GLibHolder<char> escaped(g_dbus_address_escape_value(path.c_str()));
    return std::string("unix:path=") + escaped.get();
}

Failure Service::isolate() {
    const std::optional<std::string> session = sessionBusAddress();
    if ((session && offersServiceAskedByOther(*session)) || isolateIpc()) {
        return std::nullopt;
    }
    return Error{Error::Kind::System, "the system does not allow an IPC namespace", EPERM, {}};
}

Result<Service> Service::open(const ServiceOptions& options) {
    const std::optional<std::string> session = sessionBusAddress();
    if (session && (options.isolate ? offersServiceAskedByOther(*session) : offersService(*session))) {
        Result<Bus> bus = Bus::connect(*session, options.stop);
        if (!bus) {
            return bus.error();
        }
        return Service(nullptr, std::move(*bus));
    }
    if (options.isolate) {
        isolateIpc();
    }
    Result<PrivateBus> privateBus = PrivateBus::start();
    if (!privateBus) {
        return privateBus.error();
    }
    Result<Bus> bus = Bus::connect(privateBus->address(), options.stop);
    if (!bus) {
        return bus.error();
    }
    return Service(std::make_shared<PrivateBus>(std::move(*privateBus)), std::move(*bus));
}

} // namespace lectern
