// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern {

// The folder of a private bus, accessible to this user only: the bus's socket,
// its configuration and the file that tells how to start the service. Removed
// on destruction.
class BusFolder {
public:
    // service: path of the service's program.
    explicit BusFolder(const std::string& service);
    ~BusFolder();
    BusFolder(const BusFolder&) = delete;
    BusFolder& operator=(const BusFolder&) = delete;

    // False when the folder or a file in it could not be created.
    bool complete() const { return mComplete; }
    std::string configuration() const { return mPath + "/bus.conf"; }

private:
    std::string mPath;
    bool mComplete = false;
};

} // namespace lectern
