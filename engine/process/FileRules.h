// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/FileDescriptor.h"

#include <cstdint>
#include <string>

namespace lectern::engine {

// Landlock rules for this process and those it forks: it opens for writing, and with
// Covers::Reading also for reading, what was allowed and nothing else. It executes
// nothing, makes no devices, pipes or sockets, and uses no device's own commands.
// Where the kernel can (6.12), it signals no process outside and connects to no abstract
// socket there; where it can (6.7), it uses no TCP.
//
// Looking for files and at their sizes and times is not covered.
class FileRules {
public:
    enum class Covers { Writing, Reading };

    explicit FileRules(Covers covers);

    // False on a kernel without Landlock. The other functions then must not be called.
    static bool areSupported();

    // Allow what lies below a folder, or a single file. They return false on failure,
    // with the reason in errno.
    [[nodiscard]] bool allowEverythingIn(const std::string& folder);
    [[nodiscard]] bool allowWriting(const std::string& file);
    // Does nothing for a path that does not exist.
    [[nodiscard]] bool allowReading(const std::string& path);
    // The file of a descriptor, by whatever path it is opened.
    [[nodiscard]] bool allowReading(int file);

    // REQUIRES: no_new_privs is set, and the process has one thread.
    [[nodiscard]] bool enforce();

private:
    bool allow(int place, std::uint64_t accesses);

    std::uint64_t mCovered;
    FileDescriptor mRuleset;
};

} // namespace lectern::engine
