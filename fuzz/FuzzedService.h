// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// Enters a new IPC namespace, registers the methods with the fake bus and discards
// standard output. Call it once, from LLVMFuzzerInitialize. Ends the program on failure.
void startFuzzedService();

// Opens a word-processing document, with docid 0, and a frame buffer. Its state record
// has the first 28 of the given bytes; with fewer there is none. The destructor closes
// all documents and removes the segments.
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

// Calls a method by its index in all methods of all categories, modulo their number.
void callMethod(size_t number, const std::string& payload);
