// SPDX-License-Identifier: Apache-2.0
// lectern-pan FILE [PREFIX]: pans a document and shows it in a terminal or
// writes PREFIX-1.pam, PREFIX-2.pam ...
#include <lectern/Document.h>
#include <lectern/Service.h>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <fstream>
#include <mutex>
#include <string>

namespace {

void showInTerminal(const lectern::FrameBuffer& frame) {
    const auto colour = [&](const char* layer, int x, int y) {
        const uint32_t pixel = frame.pixels()[y * frame.width() + x];
        std::printf("\033[%s;2;%u;%u;%um", layer, pixel >> 16 & 255, pixel >> 8 & 255, pixel & 255);
    };
    std::printf("\033[H");
    for (int y = 0; y + 8 < frame.height(); y += 16) {
        for (int x = 0; x < frame.width(); x += 8) {
            colour("38", x, y);
            colour("48", x, y + 8);
            std::printf("\u2580");
        }
        std::printf("\033[0m\n");
    }
    std::fflush(stdout);
}

void writePam(const lectern::FrameBuffer& frame, const std::string& path) {
    std::ofstream file(path, std::ios::binary);
    file << "P7\nWIDTH " << frame.width() << "\nHEIGHT " << frame.height()
         << "\nDEPTH 3\nMAXVAL 255\nENDHDR\n";
    for (int i = 0; i < frame.width() * frame.height(); ++i) {
        for (const int shift : {16, 8, 0}) {
            file.put(static_cast<char>(frame.pixels()[i] >> shift));
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        return 2;
    }
    const auto service = lectern::Service::open({.isolate = true}); // call before starting threads
    std::mutex mutex;
    std::condition_variable shown;
    int frames = 0;
    lectern::OpenOptions options{.width = 480, .height = 800};
    options.events.onFrame = [&](const lectern::FrameBuffer& frame) { // called on the document's thread
        const std::lock_guard lock(mutex);
        ++frames;
        argc > 2 ? writePam(frame, argv[2] + ("-" + std::to_string(frames)) + ".pam") : showInTerminal(frame);
        shown.notify_all();
    };
    const auto opened = service ? lectern::Document::open(service->bus(), argv[1], options) : service.error();
    if (!opened) {
        std::fprintf(stderr, "%s\n", opened.error().text.c_str());
        return 1;
    }
    lectern::Document& document = **opened;
    document.penDown(240, 700);
    for (int y = 650; y >= 100; y -= 50) { // the document follows the finger
        document.penMove(240, y);
        std::unique_lock lock(mutex);
        shown.wait_for(lock, std::chrono::seconds(1), [&, before = frames] { return frames > before; });
    }
    document.flick(0, -2000); // and keeps gliding when the finger is lifted
    document.penUp(240, 100);
    std::unique_lock lock(mutex);
    for (int before = -1; before != frames;) { // until nothing moves
        before = frames;
        shown.wait_for(lock, std::chrono::milliseconds(500), [&] { return frames > before; });
    }
    std::printf("%d pictures, now at row %d\n", frames, document.state().scrollY);
}
