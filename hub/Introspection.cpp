// SPDX-License-Identifier: Apache-2.0
#include "hub/Introspection.h"

#include <set>
#include <string_view>
#include <utility>

namespace hub {
namespace {

// GLib neither counts references to a record with this count nor frees it.
constexpr gint NOT_COUNTED = -1;

// GLib's records have char* members, but GLib only reads the text.
char* readOnly(const char* text) {
    return const_cast<char*>(text);
}

GDBusArgInfo gPayload{NOT_COUNTED, readOnly("payload"), readOnly("s"), nullptr};
GDBusArgInfo gReply{NOT_COUNTED, readOnly("reply"), readOnly("s"), nullptr};
GDBusArgInfo* gArgumentsIn[] = {&gPayload, nullptr};
GDBusArgInfo* gArgumentsOut[] = {&gReply, nullptr};

} // namespace

InterfaceDescription::InterfaceDescription(std::string name, const HubMethod* methods)
    : mName(std::move(name)) {
    for (const HubMethod* method = methods; method->name != nullptr; ++method) {
        mMethods.push_back({NOT_COUNTED, readOnly(method->name), gArgumentsIn, gArgumentsOut, nullptr});
    }
    for (GDBusMethodInfo& method : mMethods) {
        mMethodList.push_back(&method);
    }
    mMethodList.push_back(nullptr);

    mInfo.ref_count = NOT_COUNTED;
    mInfo.name = mName.data();
    mInfo.methods = mMethodList.data();
}

std::string findTableFault(const HubMethod* methods) {
    std::set<std::string_view> names;
    for (const HubMethod* method = methods; method->name != nullptr; ++method) {
        const std::string name = method->name;
        if (!g_dbus_is_member_name(method->name)) {
            return "\"" + name + "\" is not a method name";
        }
        if (method->handler == nullptr) {
            return "method \"" + name + "\" has no handler";
        }
        if (method->flags != 0) {
            return "method \"" + name + "\" has unknown flags";
        }
        if (!names.insert(method->name).second) {
            return "method \"" + name + "\" is listed twice";
        }
    }
    return {};
}

} // namespace hub
