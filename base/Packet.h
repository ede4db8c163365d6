// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/FileDescriptor.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace lectern {

// A message with file descriptors on a socket of type SOCK_SEQPACKET, which keeps
// messages apart.
struct Packet {
    std::string text;                  // at most MOST_TEXT bytes
    std::vector<FileDescriptor> files; // at most MOST_FILES; close-on-exec when received

    static constexpr std::size_t MOST_TEXT = 4096;
    static constexpr std::size_t MOST_FILES = 4;
};

// Sends a packet; the files stay the caller's. Returns false when the other end is
// closed or the packet is too large.
[[nodiscard]] bool sendPacket(int socket, std::string_view text, std::initializer_list<int> files = {});

// Waits for a packet. Returns false when the other end is closed, or the packet is
// empty or larger than a packet may be.
[[nodiscard]] bool receivePacket(int socket, Packet& packet);

} // namespace lectern
