// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>

namespace lectern::engine {

// The office suite inside this process. Create at most one per process.
class Office {
public:
    // Initialises the suite with its own profile in `profileDirectory`, an
    // absolute path that is created when missing. Returns null on failure and
    // writes the reason to standard error.
    static std::unique_ptr<Office> start(const std::string& profileDirectory);
    ~Office();
    Office(const Office&) = delete;
    Office& operator=(const Office&) = delete;

    // The implementation's data, defined for this folder only.
    struct Private;
    Private& d() { return *mPrivate; }

private:
    explicit Office(std::unique_ptr<Private> d);
    std::unique_ptr<Private> mPrivate;
};

} // namespace lectern::engine
