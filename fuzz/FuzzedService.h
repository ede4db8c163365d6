// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// Enters a new IPC namespace, registers the methods with the fake bus and discards
// standard output. Call it once, from LLVMFuzzerInitialize. Ends the program on failure.
void startFuzzedService();

// Opens a document, with docid 0, and a frame buffer. Its state record has the first 28
// of the given bytes; with fewer there is none. The destructor closes all documents and
// removes the segments.
class FuzzedDocument {
public:
    // A word-processing document, a spreadsheet and a presentation.
    static constexpr unsigned KINDS = 3;

    FuzzedDocument(const uint8_t* state, size_t stateSize, unsigned kind = 0);
    ~FuzzedDocument();
    FuzzedDocument(const FuzzedDocument&) = delete;
    FuzzedDocument& operator=(const FuzzedDocument&) = delete;

    // Writes to the given state record, if there is one, as its client may at any time.
    void writeState(const uint8_t* state, size_t stateSize) const;

private:
    int mFrame;
    int mState;
};

// Calls a method by its index in all methods of all categories, modulo their number.
void callMethod(size_t number, const std::string& payload);

// A payload with all parameters of all methods for the document with docid 0.
std::string anyPayload(unsigned x, unsigned y);
