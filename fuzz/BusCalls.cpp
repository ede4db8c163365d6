// SPDX-License-Identifier: Apache-2.0
// Calls bus methods with any payload while a document is open. Input: a byte for the
// document's kind, then lines of one byte with the method's number, followed by the payload.
#include "fuzz/FakeModules.h"
#include "fuzz/FuzzedService.h"

#include <algorithm>

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    startFuzzedService();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) {
        return 0;
    }
    resetFakeModules();
    const FuzzedDocument document(nullptr, 0, *data % FuzzedDocument::KINDS);
    const uint8_t* const end = data + size;
    ++data;
    while (data < end) {
        const uint8_t* const lineEnd = std::find(data, end, '\n');
        if (lineEnd > data) {
            callMethod(*data, std::string(data + 1, lineEnd));
        }
        data = lineEnd + (lineEnd < end ? 1 : 0);
    }
    return 0;
}
