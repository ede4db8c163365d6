// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Document.h>

#include <functional>
#include <memory>
#include <string>

#pragma GCC visibility push(default)

namespace lectern {

// An open in the background, for programs with a loop that must not wait.
class Opening {
public:
    using OnOpened = std::function<void(Result<std::unique_ptr<Document>>)>;

    // Opens as Document::open does, in a thread. Both options.onProgress and
    // onOpened, which comes last and once, are called on options.context, or on
    // a thread of the opening's where there is none.
    static std::unique_ptr<Opening> start(const Bus& bus, const std::string& path, OpenOptions options,
                                          OnOpened onOpened);
    // Gives the open up where it has not ended; nothing is called after this. May
    // run in onOpened.
    virtual ~Opening() = default;

protected:
    Opening() = default;
    Opening(const Opening&) = delete;
    Opening& operator=(const Opening&) = delete;
};

} // namespace lectern

#pragma GCC visibility pop
