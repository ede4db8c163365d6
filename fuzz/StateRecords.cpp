// SPDX-License-Identifier: Apache-2.0
// Opens a document of any kind with any state record, which is what a client hands back,
// paints it, moves it, and reads the record that the view has saved. Input: a byte for
// the kind and 28 bytes of state, then bytes that the client writes to the record while
// the document is open.
#include "channel/DocAdapterCommon.h"
#include "fuzz/FakeModules.h"
#include "fuzz/FuzzedService.h"
#include "service/RenderWorker.h"

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    startFuzzedService();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) {
        return 0;
    }
    resetFakeModules();
    FuzzedDocument document(data + 1, size - 1, data[0] % FuzzedDocument::KINDS);
    for (const long type : {_PAINT, _PEN_DOWN, _PEN_MOVE, _PEN_UP, _PAINT, _GESTURE_START, _GESTURE_CHANGE,
                            _PAINT, _GESTURE_END, _PAINT}) {
        ClientServerMessage message(type, 0);
        message.setReals(1.5, 0);
        serveMessage(message);
    }
    document.writeState(data + 1, size - 1);
    serveMessage(ClientServerMessage(_KEY_DOWN, 0));
    serveMessage(ClientServerMessage(_PAINT, 0));
    return 0;
}
