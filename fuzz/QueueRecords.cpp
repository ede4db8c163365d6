// SPDX-License-Identifier: Apache-2.0
// Handles any client records for a document of any kind with any state record. Input: 28
// bytes of state, of which the last also chooses the kind, then records of one byte for the type and 20 bytes
// of text. If the high bit of the type's byte is set, a paint request follows.
#include "channel/DocAdapterCommon.h"
#include "fuzz/FakeModules.h"
#include "fuzz/FuzzedService.h"
#include "service/RenderWorker.h"

#include <cstring>

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    startFuzzedService();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    constexpr size_t STATE_BYTES = 28;
    constexpr size_t RECORD_BYTES = 1 + ClientServerMessage::TEXT_SIZE;
    resetFakeModules();
    const FuzzedDocument document(data, size, size < STATE_BYTES ? 0 : data[STATE_BYTES - 1] % 3);
    for (size_t at = STATE_BYTES; at + RECORD_BYTES <= size; at += RECORD_BYTES) {
        ClientServerMessage message(data[at] & 0x7F, 0);
        std::memcpy(&message.docid, data + at + 1, ClientServerMessage::TEXT_SIZE);
        if ((data[at + 1] & 1) == 0) {
            message.docid = 0; // so that about half of the records are for the open document
        }
        serveMessage(message);
        if ((data[at] & 0x80) != 0) {
            serveMessage(ClientServerMessage(_PAINT, 0));
        }
    }
    return 0;
}
