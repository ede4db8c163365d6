// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>

namespace lectern::engine {

// The office suite inside this process. One for a process, made once.
class Office {
public:
    // Initialises the suite with a profile of its own in profileDirectory
    // (absolute, made when missing). Null when that fails; the reason goes to
    // standard error.
    static std::unique_ptr<Office> start(const std::string& profileDirectory);
    ~Office();
    Office(const Office&) = delete;
    Office& operator=(const Office&) = delete;

    // What an implementation keeps; only this folder knows it.
    struct Private;
    Private& d() { return *mPrivate; }

private:
    explicit Office(std::unique_ptr<Private> d);
    std::unique_ptr<Private> mPrivate;
};

} // namespace lectern::engine
