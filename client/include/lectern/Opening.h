// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Document.h>

#include <functional>
#include <memory>
#include <string>

#pragma GCC visibility push(default)

namespace lectern {

// Opens a document in the background, for programs whose loop must not block.
class Opening {
public:
    using OnOpened = std::function<void(Result<std::unique_ptr<Document>>)>;

    // Starts a thread that opens the document as Document::open does, and returns at
    // once. options.onProgress and onOpened are called by the loop of options.context
    // or, without one, by a thread of this object. onOpened is called once, last, with
    // the document, which then belongs to the callee, or the error.
    static std::unique_ptr<Opening> start(const Bus& bus, const std::string& path, OpenOptions options,
                                          OnOpened onOpened);
    // Cancels the open unless it has ended. No callback runs after this. May be called
    // inside onOpened.
    virtual ~Opening() = default;

protected:
    Opening() = default;
    Opening(const Opening&) = delete;
    Opening& operator=(const Opening&) = delete;
};

} // namespace lectern

#pragma GCC visibility pop
