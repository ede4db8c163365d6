// SPDX-License-Identifier: Apache-2.0
#include "tests/fakes/office/Misbehaviour.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/ipc.h>
#include <sys/msg.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>
#include <new>
#include <stdexcept>
#include <thread>
#include <vector>

namespace lectern::engine::fake {
namespace {

// The part after the colon.
std::string detailOf(const std::string& action) {
    const std::size_t colon = action.find(':');
    return colon == std::string::npos ? std::string() : action.substr(colon + 1);
}

std::string outcome(long result) {
    return result >= 0 ? "allowed" : strerrorname_np(errno);
}

std::string closing(int fd) {
    const std::string result = outcome(fd);
    if (fd >= 0) {
        close(fd);
    }
    return result;
}

void hang() {
    const char* folder = std::getenv("TMPDIR");
    std::ofstream(std::string(folder) + "/hanging") << "yes\n";
    for (;;) {
        pause();
    }
}

void eatMemory() {
    constexpr std::size_t BITE = std::size_t{64} << 20;
    std::vector<std::unique_ptr<char[]>> eaten;
    for (;;) {
        eaten.emplace_back(new char[BITE]);
    }
}

std::string probeFork() {
    const auto child = static_cast<pid_t>(syscall(SYS_fork));
    if (child == 0) {
        _exit(0);
    }
    const std::string result = outcome(child);
    if (child > 0) {
        waitpid(child, nullptr, 0);
    }
    return result;
}

std::string probeQueue() {
    const int queue = msgget(IPC_PRIVATE, 0600);
    const std::string result = outcome(queue);
    if (queue >= 0) {
        msgctl(queue, IPC_RMID, nullptr);
    }
    return result;
}

std::string probeExec(const std::string& path) {
    char* const none[] = {nullptr};
    execve(path.c_str(), none, none);
    return outcome(-1);
}

} // namespace

std::int32_t misbehave(const std::string& action) {
    if (action == "hang") {
        hang();
    }
    if (action == "crash") {
        signal(SIGSEGV, SIG_DFL);
        raise(SIGSEGV);
    }
    if (action == "exit") {
        _exit(3);
    }
    if (action == "eat") {
        eatMemory();
    }
    if (action == "starve") {
        throw std::bad_alloc();
    }
    if (action == "throw") {
        throw std::runtime_error("thrown by a document");
    }
    if (action.rfind("slow:", 0) == 0) {
        std::this_thread::sleep_for(std::chrono::milliseconds(std::stoi(detailOf(action))));
    }
    if (action.rfind("second:", 0) == 0) {
        static int times = 0; // an engine has one document
        return ++times % 2 == 0 ? std::stoi(detailOf(action)) : 0;
    }
    return action.rfind("code:", 0) == 0 ? std::stoi(detailOf(action)) : 0;
}

std::string probe(const std::string& action) {
    const std::string kind = action.substr(0, action.find(':'));
    const std::string detail = detailOf(action);
    if (kind == "write") {
        return closing(open(detail.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    }
    if (kind == "read") {
        return closing(open(detail.c_str(), O_RDONLY | O_CLOEXEC));
    }
    if (kind == "socket") {
        return closing(socket(std::stoi(detail), SOCK_STREAM | SOCK_CLOEXEC, 0));
    }
    if (kind == "signal") {
        return outcome(kill(std::stoi(detail), 0));
    }
    if (kind == "exec") {
        return probeExec(detail);
    }
    if (kind == "fork") {
        return probeFork();
    }
    return kind == "queue" ? probeQueue() : "unknown";
}

} // namespace lectern::engine::fake
