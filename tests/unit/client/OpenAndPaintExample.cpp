// SPDX-License-Identifier: Apache-2.0
// docs/client.md shows this program.
#include <cstdio>

#include "client/Document.h"
#include "client/Service.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        return 2;
    }
    auto service = lectern::Service::open({.isolate = true});
    if (!service) {
        std::fprintf(stderr, "%s\n", service.error().text.c_str());
        return 1;
    }
    auto opened = lectern::Document::open(service->bus(), argv[1], {.width = 480, .height = 800});
    if (!opened) {
        std::fprintf(stderr, "%s\n", opened.error().text.c_str());
        return 1;
    }
    lectern::Document& document = **opened;
    document.penDown(240, 700); // drag the text 500 pixels up
    document.penUp(240, 200);
    document.settle(); // paints overtake input that waits
    if (auto failure = document.paint()) {
        std::fprintf(stderr, "%s\n", failure->text.c_str());
        return 1;
    }
    std::printf("row %d, first pixel %08x\n", document.state().scrollY, document.frame().pixels()[0]);
    return 0;
}
