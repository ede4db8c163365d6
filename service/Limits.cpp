// SPDX-License-Identifier: Apache-2.0
#include "service/Limits.h"

#include "base/DescriptorsLeft.h"

#include <glib.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr uint64_t MIB = uint64_t{1} << 20;
constexpr uint64_t LEAST_BYTES = 1024 * MIB;

// GLib ends the process when it gets no descriptor for a main context. An engine takes
// 16 while it starts; the rest is for calls of other documents.
constexpr size_t DESCRIPTOR_RESERVE = 24;
constexpr rlim_t MOST_DESCRIPTORS = 8192;

uint64_t machineMemory() {
    const long pages = sysconf(_SC_PHYS_PAGES);
    return pages > 0 ? static_cast<uint64_t>(pages) * static_cast<uint64_t>(sysconf(_SC_PAGESIZE)) : 0;
}

void readFrom(const char* variable, uint64_t unit, uint64_t& value) {
    const char* const text = std::getenv(variable);
    guint64 number = 0;
    if (text != nullptr && g_ascii_string_to_unsigned(text, 10, 1, G_MAXINT, &number, nullptr)) {
        value = number * unit;
    }
}

// The documents of one client, or of all.
struct Held {
    uint64_t documents = 0;
    uint64_t bytes = 0;

    void add(const Documents& document) {
        ++documents;
        bytes += document.frame->segmentBytes() + document.view->pictureBytes();
    }
    bool hasRoom(uint64_t more, uint64_t mostBytes) const {
        return more <= mostBytes && bytes <= mostBytes - more;
    }
};

} // namespace

Limits::Limits()
    : bytes(std::max(machineMemory() / 2, LEAST_BYTES)),
      bytesPerClient(std::max(machineMemory() / 4, LEAST_BYTES / 2)) {
    readFrom("LECTERN_MAX_DOCUMENTS", 1, documents);
    readFrom("LECTERN_MAX_CLIENT_DOCUMENTS", 1, documentsPerClient);
    readFrom("LECTERN_MAX_PICTURE_MIB", MIB, bytes);
    readFrom("LECTERN_MAX_CLIENT_PICTURE_MIB", MIB, bytesPerClient);
}

Limits& limits() {
    static Limits ours;
    return ours;
}

namespace {

// The documents of all and of one client, but for one that is left out.
struct Holders {
    Held all;
    Held client;
};
Holders holders(const std::string& client, const Documents* leftOut) REQUIRES(gRegistry) {
    Holders held;
    for (const Documents& document : gDocuments) {
        if (document.view == nullptr || !document.frame || &document == leftOut) {
            continue;
        }
        held.all.add(document);
        if (document.client == client) {
            held.client.add(document);
        }
    }
    return held;
}

const char* refusal(const Holders& held, const FrameBuffer& frame, int width, int height) {
    const uint64_t lastFrame = static_cast<uint64_t>(width) * static_cast<uint64_t>(height) * 4;
    const uint64_t wanted = frame.segmentBytes() + lastFrame;
    if (held.client.documents >= limits().documentsPerClient) {
        return "the client has too many documents open";
    }
    if (held.all.documents >= limits().documents) {
        return "too many documents are open";
    }
    if (!held.client.hasRoom(wanted, limits().bytesPerClient)) {
        return "the client's pictures take too much memory";
    }
    if (!held.all.hasRoom(wanted, limits().bytes)) {
        return "all pictures take too much memory";
    }
    return lectern::descriptorsLeft<DESCRIPTOR_RESERVE>() ? nullptr : "too few file descriptors are left";
}

} // namespace

const char* refusalOf(const std::string& client, const FrameBuffer& frame, int width, int height) {
    return refusal(holders(client, nullptr), frame, width, height);
}

const char* refusalOfResize(const Documents& resized, const FrameBuffer& frame, int width, int height) {
    return refusal(holders(resized.client, &resized), frame, width, height);
}

void raiseDescriptorLimit() {
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0) {
        return;
    }
    const rlim_t wanted = std::min(limit.rlim_max, MOST_DESCRIPTORS);
    if (limit.rlim_cur < wanted) {
        limit.rlim_cur = wanted;
        setrlimit(RLIMIT_NOFILE, &limit);
    }
}
