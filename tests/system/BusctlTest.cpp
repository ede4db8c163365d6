// SPDX-License-Identifier: Apache-2.0
// Runs the commands of docs/bus.md and docs/touch.md unchanged in a shell.
#include "tests/guides/BusGuide.h"
#include "tests/system/support/ServiceFixture.h"

#include <json-c/json.h>
#include <sys/shm.h>

#include <filesystem>
#include <fstream>
#include <memory>

namespace {

struct Ran {
    std::string command;
    std::string output; // of standard output, without the last line feed
    int status = -1;
};

std::string wordAfter(const std::string& text, const std::string& before) {
    const size_t start = text.find(before);
    return start == std::string::npos
               ? ""
               : text.substr(start + before.size(),
                             text.find(' ', start + before.size()) - start - before.size());
}

// The text as busctl prints it: s "...", with quotes and backslashes escaped.
std::string replyText(const std::string& output) {
    std::string text;
    EXPECT_EQ(output.substr(0, 3), "s \"") << output;
    EXPECT_EQ(output.back(), '"') << output;
    for (size_t i = 3; i + 1 < output.size(); ++i) {
        i += output[i] == '\\' ? 1 : 0;
        text += output[i];
    }
    return text;
}

using Json = std::unique_ptr<json_object, decltype(&json_object_put)>;

Json parsed(const std::string& text) {
    return {json_tokener_parse(text.c_str()), json_object_put};
}

// The names and types of the members, as in {"list": [{"data": string}]}.
std::string shape(json_object* value) {
    if (json_object_is_type(value, json_type_array) != 0) {
        return "[" +
               (json_object_array_length(value) == 0 ? "" : shape(json_object_array_get_idx(value, 0))) + "]";
    }
    if (json_object_is_type(value, json_type_object) == 0) {
        return json_type_to_name(json_object_get_type(value));
    }
    std::string members;
    json_object_object_foreach(value, key, member) {
        members += (members.empty() ? "" : ", ") + std::string(key) + ": " + shape(member);
    }
    return "{" + members + "}";
}

class BusctlTest : public ServiceTest {
protected:
    // Runs the commands in one shell, in the source tree.
    std::vector<Ran> runAll(const std::vector<std::string>& commands) const {
        const std::string script = folder.path() + "/commands";
        std::ofstream lines(script);
        lines << "cd '" << sample("..") << "'\n";
        for (size_t i = 0; i < commands.size(); ++i) {
            const std::string output = folder.path() + "/ran" + std::to_string(i);
            lines << commands[i] << " >" << output << "\necho $? >" << output << ".status\n";
        }
        lines.close();
        Subprocess shell({"sh", script}, {{"DBUS_SESSION_BUS_ADDRESS", bus->address()}},
                         folder.path() + "/shell");
        EXPECT_EQ(shell.wait(std::chrono::seconds(200)), std::optional<int>(0));
        EXPECT_EQ(shell.errors(), "");
        std::vector<Ran> ran;
        for (size_t i = 0; i < commands.size(); ++i) {
            const std::string output = folder.path() + "/ran" + std::to_string(i);
            const std::string text = readFile(output);
            ran.push_back({commands[i], text.substr(0, text.find_last_not_of('\n') + 1),
                           std::stoi("0" + readFile(output + ".status"))});
        }
        return ran;
    }
};

// Segment identifiers start at 0 in a new namespace, and 0 means no segment. This
// object holds segment 0, so that the shell's segments get other identifiers.
class PlaceHolder {
public:
    PlaceHolder() : mId(shmget(IPC_PRIVATE, 1, 0600)) {}
    ~PlaceHolder() { shmctl(mId, IPC_RMID, nullptr); }
    PlaceHolder(const PlaceHolder&) = delete;
    PlaceHolder& operator=(const PlaceHolder&) = delete;

private:
    int mId;
};

TEST_F(BusctlTest, EveryCommandOfTheGuideGetsTheReplyThatTheGuideShows) {
    const PlaceHolder notZero;
    std::map<std::string, GuideMethod> unused;
    for (const GuideMethod& method : busGuide()) {
        unused[method.category + " " + method.name] = method;
    }
    const std::map<std::string, GuideMethod> methods = unused;
    for (const Ran& ran : runAll(busGuideCommands())) {
        SCOPED_TRACE(ran.command);
        EXPECT_EQ(ran.status, 0);
        if (ran.command.rfind("busctl", 0) != 0) {
            continue;
        }
        const std::string category = wordAfter(ran.command, "call com.kestrel.office ");
        const std::string interface = "com.kestrel.office." + category.substr(1);
        const auto found = methods.find(category + " " + wordAfter(ran.command, " " + interface + " "));
        ASSERT_NE(found, methods.end());
        unused.erase(found->first);
        const bool expectsReply = ran.command.find("--expect-reply=no") == std::string::npos;
        EXPECT_EQ(expectsReply, !found->second.reply.empty());
        if (expectsReply) {
            const std::string text = replyText(ran.output);
            EXPECT_EQ(shape(parsed(text.empty() ? "\"\"" : text).get()),
                      shape(parsed(found->second.reply).get()))
                << text;
        } else {
            EXPECT_EQ(ran.output, "");
        }
    }
    EXPECT_TRUE(std::filesystem::remove("/tmp/lectern-copy.txt")) << "what the guide copies to";
    EXPECT_TRUE(std::filesystem::remove("/tmp/lectern-export.txt")) << "what the guide exports to";
    EXPECT_TRUE(unused.empty()) << "no command for " << unused.begin()->first;
}

} // namespace
