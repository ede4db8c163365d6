// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// Call once, from LLVMFuzzerInitialize: an IPC namespace of the program's own,
// the methods registered with the fake bus, output thrown away.
void startFuzzedService();

// One word-processing document with a frame buffer, opened with a state record
// of the given bytes (fewer than 28: none), destroyed at the end. Its docid is 0.
class FuzzedDocument {
public:
    FuzzedDocument(const uint8_t* state, size_t stateSize);
    ~FuzzedDocument();
    FuzzedDocument(const FuzzedDocument&) = delete;
    FuzzedDocument& operator=(const FuzzedDocument&) = delete;

private:
    int mFrame;
    int mState;
};

// Calls a method by its number among all of all categories.
void callMethod(size_t number, const std::string& payload);
