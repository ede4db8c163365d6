// SPDX-License-Identifier: Apache-2.0
// lectern-keeper SERVICE: runs a private bus with the document service for the
// process at the other end of its standard input. Prints one line, "address
// ADDRESS" or the reason for a failure, and ends with all its descendants when
// its standard input is closed. With --offers ADDRESS its exit status tells
// whether a bus has the service, for clients that must not connect yet.
//
// The process has one thread, because the parent death signal set for the bus
// daemon follows the thread that forked. It is a child subreaper, so that the
// service and its engines become its children when their parents end.
#include "base/FileDescriptor.h"
#include "client/keeper/BusFolder.h"
#include "client/keeper/Descendants.h"
#include <lectern/Bus.h>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <string>
#include <string_view>

namespace {

using lectern::FileDescriptor;

// Longer than the service takes to stop during a module call.
constexpr std::chrono::milliseconds PATIENCE{3'000};

FileDescriptor blockSignals() {
    sigset_t handled;
    sigemptyset(&handled);
    for (const int number : {SIGCHLD, SIGTERM, SIGINT, SIGHUP}) {
        sigaddset(&handled, number);
    }
    sigprocmask(SIG_BLOCK, &handled, nullptr);
    signal(SIGPIPE, SIG_IGN);
    return FileDescriptor(signalfd(-1, &handled, SFD_CLOEXEC | SFD_NONBLOCK));
}

// Runs in the forked child. Standard output of the daemon and the service is
// discarded; their standard error is the client's.
[[noreturn]] void becomeDaemon(const std::string& configuration, int addressPipe) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    signal(SIGPIPE, SIG_DFL);
    const int nothing = open("/dev/null", O_RDWR);
    dup2(nothing, STDIN_FILENO);
    dup2(nothing, STDOUT_FILENO);
    const int heir = dup(addressPipe); // unlike the original, the duplicate stays open across exec
    const std::string file = "--config-file=" + configuration;
    const std::string print = "--print-address=" + std::to_string(heir);
    execlp("dbus-daemon", "dbus-daemon", file.c_str(), "--nofork", "--nopidfile", print.c_str(), nullptr);
    std::perror("dbus-daemon");
    _exit(127);
}

// Starts the daemon and returns the address that it prints; empty when it ended
// without one.
std::string startDaemon(const std::string& configuration) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        return {};
    }
    const FileDescriptor reading(ends[0]);
    FileDescriptor writing(ends[1]);
    const pid_t child = fork();
    if (child == 0) {
        becomeDaemon(configuration, writing.get());
    }
    writing.reset();
    std::string line;
    char buffer[512];
    ssize_t count = 0;
    while ((line.empty() || line.back() != '\n') &&
           (count = read(reading.get(), buffer, sizeof buffer)) > 0) {
        line.append(buffer, static_cast<size_t>(count));
    }
    return line;
}

// Waits until the client has ended, the daemon has ended, or a signal asks to end.
void waitForEnd(int signals) {
    pollfd sources[] = {{STDIN_FILENO, POLLIN, 0}, {signals, POLLIN, 0}};
    for (;;) {
        if (poll(sources, 2, -1) < 0) {
            continue;
        }
        char byte = 0;
        if (sources[0].revents != 0 && read(STDIN_FILENO, &byte, 1) <= 0) {
            return;
        }
        signalfd_siginfo signal{};
        while (read(signals, &signal, sizeof signal) > 0) {
            if (signal.ssi_signo != SIGCHLD) {
                return;
            }
        }
        pid_t gone = 0;
        do {
            gone = waitpid(-1, nullptr, WNOHANG);
        } while (gone > 0);
        if (gone < 0) {
            return; // all children have ended
        }
    }
}

// Runs a bus until its client has ended; returns the exit status.
int keepBus(const char* service) {
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    const FileDescriptor signals = blockSignals();
    const lectern::BusFolder folder(service);
    const std::string address = folder.complete() ? startDaemon(folder.configuration()) : std::string();
    int status = 0;
    if (address.empty()) {
        std::fputs(folder.complete() ? "cannot start dbus-daemon; check that it is installed\n"
                                     : "cannot create a folder for the private bus in /tmp\n",
                   stdout);
        status = 1;
    } else {
        std::printf("address %s", address.c_str());
    }
    std::fclose(stdout);
    if (status == 0) {
        waitForEnd(signals.get());
    }
    lectern::endDescendants(PATIENCE);
    return status;
}

// Returns the exit status that tells whether the bus at an address has the
// service or can start it.
int offersService(const char* address) {
    const lectern::Result<lectern::Bus> bus = lectern::Bus::connect(address);
    return bus && bus->offersService() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::string_view(argv[1]) == "--offers") {
        return offersService(argv[2]);
    }
    if (argc != 2) {
        std::fputs("Usage: lectern-keeper SERVICE\n"
                   "       lectern-keeper --offers ADDRESS\n"
                   "Started by Lectern's clients, not by hand.\n",
                   stderr);
        return 2;
    }
    return keepBus(argv[1]);
}
