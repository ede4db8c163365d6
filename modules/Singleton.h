// SPDX-License-Identifier: Apache-2.0
#pragma once

// The one object of type T in the process: made on first use, thread-safe, and
// never destroyed, so that it outlives every view however the process ends.
template<typename T>
class Singleton {
public:
    static T& Instance() {
        static T& theSingleInstance = *new T();
        return theSingleInstance;
    }
};
