// SPDX-License-Identifier: Apache-2.0
#pragma once

// The single object of type T in the process. It is created on first use, by any
// thread, and never destroyed, so that it outlives every view however the process
// ends. Access to the object itself is not synchronized.
template<typename T>
class Singleton {
public:
    static T& Instance() {
        static T& theSingleInstance = *new T();
        return theSingleInstance;
    }
};
