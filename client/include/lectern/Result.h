// SPDX-License-Identifier: Apache-2.0
// Errors of the client library are values: a call that can fail returns a
// Result, and nothing throws.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace lectern {

struct Error {
    enum class Kind {
        Argument,  // the caller passed an invalid argument
        System,    // a system call failed; code holds errno
        Bus,       // no service, no connection or no valid reply; name holds the D-Bus
                   // error's name, if there is one
        Refused,   // the service replied with an error; name holds its "errorCode"
        Document,  // the document did not open or was not painted; code holds the
                   // rendering module's code (modules/ModuleResults.h)
        TimedOut,  // no reply in time
        Gone,      // the service that had the document has stopped; call
                   // Document::reopen
        Cancelled, // the caller's stop token was used
    };

    Kind kind = Kind::System;
    std::string text;       // an English sentence without its full stop, to show to users
    int code = 0;           // see Kind
    std::string name;       // see Kind
    std::string reply = {}; // refused: the service's reply, unchanged
};

// Either a value or an error.
template<typename T>
class [[nodiscard]] Result {
public:
    // Implicit, so that a function can return either a value or an Error.
    Result(T value) : mState(std::in_place_index<0>, std::move(value)) {}
    Result(Error error) : mState(std::in_place_index<1>, std::move(error)) {}

    // True when the result holds a value.
    explicit operator bool() const { return mState.index() == 0; }
    // REQUIRES: the result holds a value.
    T& operator*() { return *std::get_if<0>(&mState); }
    const T& operator*() const { return *std::get_if<0>(&mState); }
    T* operator->() { return std::get_if<0>(&mState); }
    const T* operator->() const { return std::get_if<0>(&mState); }
    // REQUIRES: the result holds an error.
    const Error& error() const { return *std::get_if<1>(&mState); }

private:
    std::variant<T, Error> mState;
};

// The result of a call without a value: empty on success, else the error.
using Failure = std::optional<Error>;

} // namespace lectern
