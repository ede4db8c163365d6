// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/FileDescriptor.h"
#include <lectern/Result.h>

#include <sys/types.h>

#include <string>

namespace lectern {

// Where the standard error of the bus and the service goes. Hidden ones are
// shown all the same where LECTERN_VERBOSE is set in the environment.
enum class Complaints { Hidden, Shown };

// A message bus for this process alone, with the document service on it, which
// starts at the first call.
//
// A keeper process of its own holds them: it reads a pipe whose other end is
// here, and when that end closes, however this process ends, it stops the bus,
// the service and all they have started, and removes the bus's folder.
class PrivateBus {
public:
    // The service is LECTERN_SERVICE in the environment, else lectern-service
    // of this installation. Must come after isolateIpc where that is wanted.
    static Result<PrivateBus> start(Complaints complaints = Complaints::Hidden);
    // Returns when everything has ended.
    ~PrivateBus();
    PrivateBus(PrivateBus&& other) noexcept;
    PrivateBus& operator=(PrivateBus&&) = delete;

    // As Bus::connect takes it.
    const std::string& address() const { return mAddress; }

private:
    PrivateBus(pid_t keeper, FileDescriptor life) : mKeeper(keeper), mLife(std::move(life)) {}

    pid_t mKeeper;
    FileDescriptor mLife; // the keeper ends when this is closed
    std::string mAddress;
};

} // namespace lectern
