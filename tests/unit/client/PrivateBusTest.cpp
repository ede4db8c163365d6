// SPDX-License-Identifier: Apache-2.0
#include "client/lib/PrivateBus.h"

#include "base/Spawn.h"
#include <lectern/Bus.h>

#include <gmock/gmock.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>

namespace {

using namespace lectern;
using testing::HasSubstr;
using testing::StartsWith;

// The bus's folder in an address like "unix:path=FOLDER/bus,guid=...".
std::filesystem::path folderOf(const std::string& address) {
    const size_t start = address.find('/');
    return std::filesystem::path(address.substr(start, address.find(',') - start)).parent_path();
}

bool hasChildren() {
    return waitpid(-1, nullptr, WNOHANG) != -1 || errno != ECHILD;
}

TEST(PrivateBus, IsOneThatCanBeConnectedTo) {
    const auto bus = PrivateBus::start();
    ASSERT_TRUE(bus) << bus.error().text;
    EXPECT_THAT(bus->address(), StartsWith("unix:path=/"));
    EXPECT_TRUE(Bus::connect(bus->address()));
    const auto folder = std::filesystem::status(folderOf(bus->address()));
    EXPECT_EQ(folder.permissions(), std::filesystem::perms::owner_all);
}

TEST(PrivateBus, IsAnotherOneEachTime) {
    const auto first = PrivateBus::start();
    const auto second = PrivateBus::start();
    ASSERT_TRUE(first && second);
    EXPECT_NE(first->address(), second->address());
}

TEST(PrivateBus, TakesItsProcessesAndItsFolderAlong) {
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    std::filesystem::path folder;
    {
        const auto bus = PrivateBus::start();
        ASSERT_TRUE(bus);
        folder = folderOf(bus->address());
        EXPECT_TRUE(std::filesystem::exists(folder));
    }
    EXPECT_FALSE(std::filesystem::exists(folder));
    EXPECT_FALSE(hasChildren());
}

// The service in this test is a sleeping shell, which does not end with its bus.
TEST(PrivateBus, EndsWithAClientThatIsKilled) {
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    const std::string service = testing::TempDir() + "lectern-sleeper-" + std::to_string(getpid());
    std::FILE* script = std::fopen(service.c_str(), "w");
    std::fputs("#!/bin/sh\nexec sleep 1000\n", script);
    std::fclose(script);
    std::filesystem::permissions(service, std::filesystem::perms::owner_all);
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    setenv("LECTERN_SERVICE", service.c_str(), 1);
    pid_t client = -1;
    const int failure = lectern::spawn(
        {.path = LECTERN_DOOMED_CLIENT, .arguments = {}, .environment = {}, .files = {-1, ends[1], -1}},
        client);
    setenv("LECTERN_SERVICE", "/bin/false", 1);
    ASSERT_EQ(failure, 0);
    close(ends[1]);
    char address[512] = {};
    ASSERT_GT(read(ends[0], address, sizeof address - 1), 0);
    close(ends[0]);
    ASSERT_TRUE(std::filesystem::exists(folderOf(address)));
    kill(client, SIGKILL);
    // This process becomes the keeper's parent and reaps it; the keeper ends
    // after all its descendants.
    while (waitpid(-1, nullptr, 0) > 0) {
    }
    EXPECT_EQ(errno, ECHILD);
    EXPECT_FALSE(std::filesystem::exists(folderOf(address)));
    std::filesystem::remove(service);
}

TEST(PrivateBus, NamesTheProgramThatItCannotFind) {
    setenv("LECTERN_KEEPER", "/nonexistent/keeper", 1);
    const auto bus = PrivateBus::start();
    setenv("LECTERN_KEEPER", LECTERN_KEEPER_PROGRAM, 1);
    ASSERT_FALSE(bus);
    EXPECT_THAT(bus.error().text, HasSubstr("/nonexistent/keeper"));
}

TEST(PrivateBus, TellsWhatTheKeeperTellsWhenThereIsNoDaemon) {
    const std::string path = getenv("PATH");
    setenv("PATH", "/nonexistent", 1);
    const auto bus = PrivateBus::start();
    setenv("PATH", path.c_str(), 1);
    ASSERT_FALSE(bus);
    EXPECT_EQ(bus.error().text, "cannot start dbus-daemon; check that it is installed");
}

TEST(PrivateBus, ReportsAKeeperThatSaysNothing) {
    setenv("LECTERN_KEEPER", "/bin/true", 1);
    const auto bus = PrivateBus::start();
    setenv("LECTERN_KEEPER", LECTERN_KEEPER_PROGRAM, 1);
    ASSERT_FALSE(bus);
    EXPECT_THAT(bus.error().text, HasSubstr("did not start"));
}

} // namespace
