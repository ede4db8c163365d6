// SPDX-License-Identifier: Apache-2.0
// vanishing_client ADDRESS FILE: a client for tests to kill. Opens a document,
// paints it, prints its number and its state segment, and waits.
#include "client/lib/DocumentNumber.h"
#include <lectern/Document.h>

#include <unistd.h>

#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 3) {
        return 2;
    }
    const auto bus = lectern::Bus::connect(argv[1]);
    const auto document = lectern::Document::open(*bus, argv[2]);
    if (!document || (*document)->paint()) {
        return 1;
    }
    std::printf("%d %u\n", lectern::DocumentNumber::of(**document), (*document)->stateIdentifier());
    std::fflush(stdout);
    pause();
    return 0;
}
