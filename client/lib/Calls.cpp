// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Calls.h"

namespace lectern {

JsonMembers documentPayload(int docid) {
    JsonMembers payload;
    payload.add("docid", docid);
    return payload;
}

JsonMembers addFrame(JsonMembers arguments, const FrameBuffer& frame) {
    arguments.add("width", frame.width())
        .add("height", frame.height())
        .addIdentifier("shmid", frame.identifier())
        .add("size", static_cast<int>(frame.size()));
    return arguments;
}

Result<std::string> ask(const Bus& bus, int docid, const Request& request, const CallLimits& limits) {
    const std::optional<JsonMembers> arguments = JsonMembers::parse(request.arguments);
    if (!arguments) {
        return Error{Error::Kind::Argument, "'" + request.arguments + "' is not a JSON object", 0, {}};
    }
    const std::string payload = documentPayload(docid).addAll(*arguments).text();
    return bus.call(request.category.c_str(), request.method.c_str(), payload, limits);
}

Call<void> command(const char* category, const char* method, const JsonMembers& arguments) {
    return {{category, method, arguments.text()}, [](const std::string& /*reply*/) { return Failure(); }};
}

Call<std::string> textQuery(const char* category, const char* method) {
    return {{category, method}, [](const std::string& reply) { return Result<std::string>(reply); }};
}

Call<int> integerQuery(const char* category, const char* method, const char* key,
                       const JsonMembers& arguments) {
    return {{category, method, arguments.text()}, [key](const std::string& reply) {
                const std::optional<JsonMembers> members = JsonMembers::parse(reply);
                return required(members ? members->integer(key) : std::nullopt);
            }};
}

} // namespace lectern
