// SPDX-License-Identifier: Apache-2.0
#include "base/Packet.h"

#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <cstring>

namespace lectern {
namespace {

// Room for the descriptors of one packet, aligned as the kernel's headers need it.
struct ControlBuffer {
    alignas(cmsghdr) std::array<char, CMSG_SPACE(Packet::MOST_FILES * sizeof(int))> bytes{};
};

void takeFiles(msghdr& message, std::vector<FileDescriptor>& files) {
    for (cmsghdr* header = CMSG_FIRSTHDR(&message); header != nullptr;
         header = CMSG_NXTHDR(&message, header)) {
        if (header->cmsg_level != SOL_SOCKET || header->cmsg_type != SCM_RIGHTS) {
            continue;
        }
        const std::size_t count = (header->cmsg_len - CMSG_LEN(0)) / sizeof(int);
        for (std::size_t i = 0; i < count; i++) {
            int file = -1;
            std::memcpy(&file, CMSG_DATA(header) + i * sizeof(int), sizeof file);
            files.emplace_back(file);
        }
    }
}

} // namespace

bool sendPacket(int socket, std::string_view text, std::initializer_list<int> files) {
    if (text.empty() || text.size() > Packet::MOST_TEXT || files.size() > Packet::MOST_FILES) {
        return false;
    }
    iovec data{const_cast<char*>(text.data()), text.size()}; // not written to
    ControlBuffer control;
    msghdr message{};
    message.msg_iov = &data;
    message.msg_iovlen = 1;
    if (files.size() > 0) {
        message.msg_control = control.bytes.data();
        message.msg_controllen = CMSG_SPACE(files.size() * sizeof(int));
        cmsghdr* header = CMSG_FIRSTHDR(&message);
        header->cmsg_level = SOL_SOCKET;
        header->cmsg_type = SCM_RIGHTS;
        header->cmsg_len = CMSG_LEN(files.size() * sizeof(int));
        std::memcpy(CMSG_DATA(header), files.begin(), files.size() * sizeof(int));
    }
    ssize_t sent = -1;
    do {
        sent = sendmsg(socket, &message, MSG_NOSIGNAL);
    } while (sent < 0 && errno == EINTR);
    return sent == static_cast<ssize_t>(text.size());
}

bool receivePacket(int socket, Packet& packet) {
    packet = {std::string(Packet::MOST_TEXT, '\0'), {}};
    iovec data{packet.text.data(), packet.text.size()};
    ControlBuffer control;
    msghdr message{};
    message.msg_iov = &data;
    message.msg_iovlen = 1;
    message.msg_control = control.bytes.data();
    message.msg_controllen = control.bytes.size();
    ssize_t received = -1;
    do {
        received = recvmsg(socket, &message, MSG_CMSG_CLOEXEC);
    } while (received < 0 && errno == EINTR);
    if (received <= 0) {
        return false;
    }
    packet.text.resize(static_cast<std::size_t>(received));
    takeFiles(message, packet.files);
    return (message.msg_flags & (MSG_TRUNC | MSG_CTRUNC)) == 0;
}

} // namespace lectern
