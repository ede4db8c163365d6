// SPDX-License-Identifier: Apache-2.0
#include "client/lib/PrivateBus.h"

#include "base/Spawn.h"
#include "client/lib/Errors.h"
#include "client/lib/Programs.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace lectern {

namespace {

constexpr int START_TIMEOUT_MS = 10'000;
// Start of the keeper's line when the bus runs; any other line is the reason
// for a failure.
constexpr std::string_view ADDRESS_MARK = "address ";

struct Pipe {
    FileDescriptor read;
    FileDescriptor write;
};

Result<Pipe> makePipe() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        return systemError("cannot create a pipe", errno);
    }
    return Pipe{FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

// Reads one line, without its end; returns what has come when the time is up or
// the writer has closed.
std::string readLine(int descriptor) {
    std::string line;
    pollfd waiting{descriptor, POLLIN, 0};
    while (poll(&waiting, 1, START_TIMEOUT_MS) > 0 || errno == EINTR) {
        char buffer[512];
        const ssize_t count = read(descriptor, buffer, sizeof buffer);
        if (count <= 0) {
            break;
        }
        line.append(buffer, static_cast<size_t>(count));
        if (line.back() == '\n') {
            line.pop_back();
            break;
        }
    }
    return line;
}

} // namespace

Result<PrivateBus> PrivateBus::start(Complaints complaints) {
    const std::string service = findProgram("lectern-service", "LECTERN_SERVICE");
    const std::string keeper = findProgram("lectern-keeper", "LECTERN_KEEPER");
    if (service.empty() || keeper.empty()) {
        return Error{Error::Kind::System,
                     std::string("cannot find the program ") +
                         (service.empty() ? "lectern-service" : "lectern-keeper") +
                         "; check the installation",
                     ENOENT,
                     {}};
    }
    Result<Pipe> life = makePipe();
    Result<Pipe> answer = makePipe();
    if (!life || !answer) {
        return life ? answer.error() : life.error();
    }
    const bool hidden = complaints == Complaints::Hidden && std::getenv("LECTERN_VERBOSE") == nullptr;
    pid_t child = -1;
    const int failure = spawn({.path = keeper,
                               .arguments = {service},
                               .environment = {},
                               .files = {life->read.get(), answer->write.get(), hidden ? -1 : STDERR_FILENO}},
                              child);
    if (failure != 0) {
        return systemError("cannot start " + keeper, failure);
    }
    PrivateBus bus(child, std::move(life->write));
    answer->write.reset();
    const std::string line = readLine(answer->read.get());
    if (line.rfind(ADDRESS_MARK, 0) != 0) {
        return Error{Error::Kind::Bus, line.empty() ? "the private bus did not start" : line, 0, {}};
    }
    bus.mAddress = line.substr(ADDRESS_MARK.size());
    return bus;
}

PrivateBus::PrivateBus(PrivateBus&& other) noexcept
    : mKeeper(std::exchange(other.mKeeper, -1)), mLife(std::move(other.mLife)),
      mAddress(std::move(other.mAddress)) {}

PrivateBus::~PrivateBus() {
    if (mKeeper == -1) {
        return;
    }
    mLife.reset();
    waitForExit(mKeeper);
}

} // namespace lectern
