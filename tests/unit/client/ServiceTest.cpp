// SPDX-License-Identifier: Apache-2.0
#include "base/FileDescriptor.h"
#include "client/lib/Programs.h"
#include "tests/unit/client/FakeService.h"
#include <lectern/Service.h>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace {

using namespace lectern;

// Sets an environment variable for the duration of a test.
class Variable {
public:
    Variable(const char* name, const std::string& value) : mName(name) { setenv(name, value.c_str(), 1); }
    ~Variable() { unsetenv(mName); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* mName;
};

TEST(ServiceChoice, IsTheSessionsWhereItIsOffered) {
    FakeService fake;
    const Variable session("DBUS_SESSION_BUS_ADDRESS", fake.address());
    for (const bool isolate : {false, true}) {
        const auto service = Service::open({.isolate = isolate});
        ASSERT_TRUE(service) << service.error().text;
        EXPECT_FALSE(service->isPrivate());
        EXPECT_TRUE(service->bus().serviceRuns());
    }
}

TEST(ServiceChoice, IsAPrivateOneWithoutASession) {
    const auto service = Service::open();
    ASSERT_TRUE(service) << service.error().text;
    EXPECT_TRUE(service->isPrivate());
    EXPECT_TRUE(service->bus().offersService());
}

TEST(ServiceChoice, IsAPrivateOneWhereTheSessionsBusCannotBeReached) {
    const Variable session("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    const auto service = Service::open();
    ASSERT_TRUE(service) << service.error().text;
    EXPECT_TRUE(service->isPrivate());
}

TEST(SessionBusAddress, IsTheEnvironmentsOrTheRuntimeFoldersSocket) {
    EXPECT_EQ(sessionBusAddress(), std::nullopt);
    std::string pattern = "/tmp/lectern-runtime-XXXXXX";
    const std::string folder = mkdtemp(pattern.data());
    {
        const Variable runtime("XDG_RUNTIME_DIR", folder);
        EXPECT_EQ(sessionBusAddress(), std::nullopt);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, (folder + "/bus").c_str(), sizeof address.sun_path - 1);
        const FileDescriptor socketHere(socket(AF_UNIX, SOCK_STREAM, 0));
        ASSERT_EQ(bind(socketHere.get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(sessionBusAddress(), "unix:path=" + folder + "/bus");
        const Variable session("DBUS_SESSION_BUS_ADDRESS", "unix:path=/elsewhere");
        EXPECT_EQ(sessionBusAddress(), "unix:path=/elsewhere");
    }
    std::filesystem::remove_all(folder);
}

TEST(FindProgram, PrefersTheEnvironmentThenItsOwnFolderThenThePath) {
    {
        const Variable chosen("LECTERN_TEST_PROGRAM", "/somewhere/else");
        EXPECT_EQ(findProgram("sh", "LECTERN_TEST_PROGRAM"), "/somewhere/else");
    }
    const std::string own = std::filesystem::read_symlink("/proc/self/exe");
    EXPECT_EQ(findProgram(std::filesystem::path(own).filename().c_str(), "LECTERN_TEST_PROGRAM"), own);
    EXPECT_NE(findProgram("sh", "LECTERN_TEST_PROGRAM"), "");
    EXPECT_EQ(findProgram("no-such-program-here", "LECTERN_TEST_PROGRAM"), "");
}

} // namespace
