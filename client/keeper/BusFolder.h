// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern {

// The folder of a private bus, for this user alone: its socket, its
// configuration, and how it starts the service. Removed with the object.
class BusFolder {
public:
    // service: path of the service's program.
    explicit BusFolder(const std::string& service);
    ~BusFolder();
    BusFolder(const BusFolder&) = delete;
    BusFolder& operator=(const BusFolder&) = delete;

    // False when it could not be made whole.
    bool complete() const { return mComplete; }
    std::string configuration() const { return mPath + "/bus.conf"; }

private:
    std::string mPath;
    bool mComplete = false;
};

} // namespace lectern
