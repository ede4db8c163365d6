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
        Argument,  // the caller asked for something that cannot be
        System,    // this machine refused: no memory, no segment, no program
        Bus,       // no service, no connection, or a call that was not answered
        Refused,   // the service answered with an error; name holds its "errorCode"
        Document,  // the document did not open; code holds the rendering module's code
        TimedOut,  // no answer in time
        Gone,      // the service that had the document has stopped; Document::reopen
                   // brings the view back
        Cancelled, // the caller's stop token was used
    };

    Kind kind = Kind::System;
    std::string text; // a plain sentence, without a full stop at its end
    int code = 0;
    std::string name;
    std::string reply = {}; // the service's own text, when it refused
};

// A value or the error that stands in its place.
template<typename T>
class [[nodiscard]] Result {
public:
    // Both conversions are wanted: a function returns a value or an Error.
    Result(T value) : mState(std::in_place_index<0>, std::move(value)) {}
    Result(Error error) : mState(std::in_place_index<1>, std::move(error)) {}

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

// A call that returns nothing: empty, or what went wrong.
using Failure = std::optional<Error>;

} // namespace lectern
