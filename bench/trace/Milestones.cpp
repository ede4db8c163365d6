// SPDX-License-Identifier: Apache-2.0
// A library to preload into a command and the processes that it starts. It writes a line
// to the file in LECTERN_MILESTONES for each step that other processes can notice: starts
// of programs, D-Bus messages, records of message queues, ends. All lines are on one clock:
//
//   MICROSECONDS PID PROGRAM EVENT [DETAIL...]
//
// The microseconds are those of CLOCK_MONOTONIC. Messages have the details: descriptor,
// serial number of the message or, for a return, of its call, and the method's name.
// Packets, which the service exchanges with the fork server, have the descriptor.
// Engines are not traced, because they start with an environment of their own; the
// service's messages show what they do.
#include <dlfcn.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/msg.h>
#include <sys/socket.h>
#include <time.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace {

int file() {
    static const int opened = [] {
        const char* const path = std::getenv("LECTERN_MILESTONES");
        return path == nullptr ? -1 : open(path, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
    }();
    return opened;
}

[[gnu::format(printf, 1, 2)]] void note(const char* format, ...) {
    const int before = errno;
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    char line[400];
    int length = std::snprintf(line, sizeof line, "%lld %d %s ",
                               static_cast<long long>(time.tv_sec) * 1000000 + time.tv_nsec / 1000, getpid(),
                               program_invocation_short_name);
    va_list arguments;
    va_start(arguments, format);
    length += std::vsnprintf(line + length, sizeof line - static_cast<size_t>(length) - 1, format, arguments);
    va_end(arguments);
    length = std::min(length, static_cast<int>(sizeof line) - 2);
    line[length] = '\n';
    // One write appends the whole line, whatever other processes write.
    (void)!write(file(), line, static_cast<size_t>(length) + 1);
    errno = before;
}

template<typename Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

constexpr size_t HEADER = 16; // bytes of a message before its fields
constexpr uint8_t CALL = 1;
constexpr uint8_t RETURN = 2;
constexpr uint8_t FAILURE = 3;

uint32_t word(const char* bytes, size_t at) {
    uint32_t value = 0;
    std::memcpy(&value, bytes + at, sizeof value);
    return value;
}

struct Fields {
    std::string member;
    uint32_t replyTo = 0;
};

// Reads the header's fields that identify a message. Each field begins at a multiple of 8
// with its code and its type; those of strings are a length and the text.
Fields fieldsOf(std::string_view bytes) {
    constexpr char MEMBER = 3;
    constexpr char REPLY_SERIAL = 5;
    Fields fields;
    size_t at = 0;
    while (at + 8 <= bytes.size()) {
        const char code = bytes[at];
        const char type = bytes[at + 2];
        if (type == 'g') {
            at += 4 + 1 + static_cast<uint8_t>(bytes[at + 4]) + 1;
        } else if (type == 'u') {
            if (code == REPLY_SERIAL) {
                fields.replyTo = word(bytes.data(), at + 4);
            }
            at += 8;
        } else {
            const size_t length = word(bytes.data(), at + 4);
            if (code == MEMBER && at + 8 + length <= bytes.size()) {
                fields.member = bytes.substr(at + 8, length);
            }
            at += 8 + length + 1;
        }
        at = (at + 7) / 8 * 8;
    }
    return fields;
}

void noteMessage(const char* event, int socket, const char* header, std::string_view fields) {
    const auto type = static_cast<uint8_t>(header[1]);
    const size_t length = word(header, 12);
    const Fields found = fieldsOf(fields.substr(0, std::min(length, fields.size())));
    if (type == CALL) {
        note("%s-call %d %u %s", event, socket, word(header, 8), found.member.c_str());
    } else if (type == RETURN || type == FAILURE) {
        note("%s-return %d %u", event, socket, found.replyTo);
    }
}

bool isHeader(std::string_view bytes) {
    constexpr char LITTLE_ENDIAN_MARK = 'l';
    constexpr char PROTOCOL = 1;
    return bytes.size() >= HEADER && bytes[0] == LITTLE_ENDIAN_MARK && bytes[3] == PROTOCOL;
}

void notePacket(const char* event, int socket) {
    int type = 0;
    socklen_t size = sizeof type;
    if (getsockopt(socket, SOL_SOCKET, SO_TYPE, &type, &size) == 0 && type == SOCK_SEQPACKET) {
        note("%s-packet %d", event, socket);
    }
}

// GLib reads a header and the rest of a message apart.
void noteReceived(int socket, std::string_view bytes) {
    constexpr size_t MOST = 256;
    static std::array<std::array<char, HEADER>, MOST> headers{};
    if (socket < 0 || static_cast<size_t>(socket) >= MOST) {
        return;
    }
    auto& header = headers[static_cast<size_t>(socket)];
    if (bytes.size() == HEADER && isHeader(bytes)) {
        std::memcpy(header.data(), bytes.data(), HEADER);
    } else if (header[0] != 0) {
        noteMessage("received", socket, header.data(), bytes);
        header[0] = 0;
    }
}

[[gnu::constructor]] void noteStart() {
    note("start");
}
[[gnu::destructor]] void noteEnd() {
    note("end");
}

} // namespace

// The programs' calls must find these functions before those of the system's library.
#pragma GCC visibility push(default)
extern "C" {

ssize_t sendmsg(int socket, const msghdr* message, int flags) {
    static const auto original = next<decltype(&sendmsg)>("sendmsg");
    if (message->msg_iovlen > 0) {
        const std::string_view bytes(static_cast<const char*>(message->msg_iov[0].iov_base),
                                     message->msg_iov[0].iov_len);
        if (isHeader(bytes)) {
            noteMessage("sends", socket, bytes.data(), bytes.substr(HEADER));
        } else {
            notePacket("sends", socket);
        }
    }
    return original(socket, message, flags);
}

ssize_t recvmsg(int socket, msghdr* message, int flags) {
    static const auto original = next<decltype(&recvmsg)>("recvmsg");
    const ssize_t count = original(socket, message, flags);
    if (count > 0 && message->msg_iovlen > 0) {
        notePacket("received", socket);
        noteReceived(socket, {static_cast<const char*>(message->msg_iov[0].iov_base),
                              std::min(static_cast<size_t>(count), message->msg_iov[0].iov_len)});
    }
    return count;
}

int msgsnd(int queue, const void* record, size_t size, int flags) {
    static const auto original = next<decltype(&msgsnd)>("msgsnd");
    note("posts %ld", *static_cast<const long*>(record));
    return original(queue, record, size, flags);
}

ssize_t msgrcv(int queue, void* record, size_t size, long type, int flags) {
    static const auto original = next<decltype(&msgrcv)>("msgrcv");
    const ssize_t count = original(queue, record, size, type, flags);
    if (count >= 0) {
        note("takes %ld", *static_cast<const long*>(record));
    }
    return count;
}

int posix_spawn(pid_t* child, const char* path, const posix_spawn_file_actions_t* actions,
                const posix_spawnattr_t* attributes, char* const* arguments, char* const* environment) {
    static const auto original = next<decltype(&posix_spawn)>("posix_spawn");
    note("spawns %s", path);
    const int result = original(child, path, actions, attributes, arguments, environment);
    note("spawned %s %d", path, result == 0 ? *child : -1);
    return result;
}
}
#pragma GCC visibility pop
