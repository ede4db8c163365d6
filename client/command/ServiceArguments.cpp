// SPDX-License-Identifier: Apache-2.0
// Arguments of the sub-commands that use the service without a document.
#include "client/command/CommandLine.h"
#include "client/lib/Json.h"

#include <gio/gio.h>

namespace lectern {

Parsed<CallArguments> parseCall(const Words& words) {
    CommandLine line("call", {"CATEGORY", "METHOD", "JSON"},
                     "Calls a method of the document service and prints its JSON reply.");
    if (auto refusal = line.parse(words, {})) {
        return asParsed<CallArguments>(std::move(*refusal));
    }
    const std::string typed = line.operand(0);
    CallArguments arguments{(typed.rfind('/', 0) == 0 ? "" : "/") + typed, line.operand(1), line.operand(2)};
    if (g_variant_is_object_path(arguments.category.c_str()) == FALSE || arguments.category == "/") {
        return Misuse{"'" + typed + "' is not a valid category; use one such as /common"};
    }
    if (g_dbus_is_member_name(arguments.method.c_str()) == FALSE) {
        return Misuse{"'" + arguments.method +
                      "' is not a valid method name; use one such as getDocProperties"};
    }
    if (!JsonMembers::parse(arguments.payload)) {
        return Misuse{"'" + arguments.payload + "' is not a JSON object; use one such as '{\"docid\": 0}'"};
    }
    return arguments;
}

Parsed<ServeArguments> parseServe(const Words& words) {
    CommandLine line("serve", {},
                     "Runs a private message bus with the document service on it until interrupted.");
    if (auto refusal = line.parse(words, {})) {
        return asParsed<ServeArguments>(std::move(*refusal));
    }
    return ServeArguments{};
}

} // namespace lectern
