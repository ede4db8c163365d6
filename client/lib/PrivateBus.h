// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/FileDescriptor.h"
#include <lectern/Result.h>

#include <sys/types.h>

#include <string>

namespace lectern {

// Whether the standard error of the bus and the service is shown. It is always
// shown when LECTERN_VERBOSE is set in the environment.
enum class Complaints { Hidden, Shown };

// A message bus for this process alone, with the document service, which starts
// at the first call.
//
// A separate keeper process owns both. It reads a pipe from this process; when
// the pipe is closed, however this process ends, it stops the bus, the service
// and their descendants, and removes the bus's folder.
class PrivateBus {
public:
    // Starts the bus. The service is the program named by LECTERN_SERVICE in
    // the environment, or else this installation's lectern-service. Call
    // isolateIpc first if needed.
    static Result<PrivateBus> start(Complaints complaints = Complaints::Hidden);
    // Returns when the bus, the service and the keeper have ended.
    ~PrivateBus();
    PrivateBus(PrivateBus&& other) noexcept;
    PrivateBus& operator=(PrivateBus&&) = delete;

    // The address for Bus::connect.
    const std::string& address() const { return mAddress; }

private:
    PrivateBus(pid_t keeper, FileDescriptor life) : mKeeper(keeper), mLife(std::move(life)) {}

    pid_t mKeeper;
    FileDescriptor mLife; // closing it ends the keeper
    std::string mAddress;
};

} // namespace lectern
