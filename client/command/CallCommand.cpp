// SPDX-License-Identifier: Apache-2.0
#include "client/command/Commands.h"
#include "client/command/Listing.h"
#include "client/command/Progress.h"
#include "client/command/ServiceCall.h"
#include <lectern/Service.h>

namespace lectern {

namespace {

// Replaces the bus's error for an unknown method, which does not tell what exists.
Error explained(Error error, const CallArguments& arguments) {
    constexpr char PREFIX[] = "org.freedesktop.DBus.Error.Unknown"; // followed by Object, Interface or Method
    if (error.name.rfind(PREFIX, 0) == 0) {
        error.text = "the service has no method '" + arguments.method + "' in '" + arguments.category +
                     "'; its categories are /common, /events, /word, /excel and /ppt";
    }
    return error;
}

Result<std::optional<std::string>> call(const Bus& bus, const CallArguments& arguments,
                                        const std::stop_token& stop) {
    constexpr std::chrono::minutes LONGEST_OPEN{10};
    const Progress progress("waiting for the answer to " + arguments.method);
    return callService(bus, arguments.category.c_str(), arguments.method.c_str(), arguments.payload,
                       {LONGEST_OPEN, stop});
}

} // namespace

// Prints all replies, including error replies, on the standard output, because
// they are the command's result.
int runCall(const CallArguments& arguments, Interrupt& interrupt) {
    const Result<Service> service = Service::open({.isolate = true, .stop = interrupt.token()});
    if (!service) {
        return report(service.error());
    }
    interrupt.watch();
    const Result<std::optional<std::string>> reply = call(service->bus(), arguments, interrupt.token());
    if (!reply && reply.error().kind != Error::Kind::Refused) {
        return report(explained(reply.error(), arguments));
    }
    const std::optional<std::string> text = reply ? *reply : reply.error().reply;
    if (const Failure failure = text ? print(*text + "\n") : Failure()) {
        return report(*failure);
    }
    return reply ? STATUS_DONE : report(reply.error());
}

} // namespace lectern
