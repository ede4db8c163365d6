// SPDX-License-Identifier: Apache-2.0
// From the call that opens a document to its first screen in the frame buffer,
// against a bare program that starts the office suite, loads, reflows and
// paints the same region.
#include <cstdio>
#include <stdexcept>

#include "bench/service/RunningService.h"

namespace {

constexpr int width = 480;
constexpr int height = 800;

double bareProgram(const std::string& file, const TemporaryFolder& folder) {
    const double start = now();
    Subprocess bare({BARE_PROGRAM, file, std::to_string(width), std::to_string(height), "72"}, {},
                    folder.path() + "/bare");
    if (bare.wait(std::chrono::seconds(120)) != std::optional<int>(0)) {
        throw std::runtime_error("the bare program fails: " + bare.errors());
    }
    return now() - start;
}

double firstScreen(RunningService& service, const std::string& file) {
    const double start = now();
    TestDocument document(service.bus(), service.queue(), file, width, height);
    if (document.openResult() != 0 || document.paint() != 0) {
        throw std::runtime_error("cannot open " + file);
    }
    return now() - start;
}

void figuresOf(const char* label, const std::string& file, int rounds) {
    TemporaryFolder folder;
    std::vector<double> bare, cold, spare;
    for (int round = 0; round < rounds; ++round) {
        bare.push_back(bareProgram(file, folder));
        RunningService service;
        cold.push_back(firstScreen(service, file));
        service.waitForSpare(0);
        spare.push_back(firstScreen(service, file));
    }
    std::printf("%-22s %9.0f %9.0f %9.0f %11.2f %11.2f\n", label, median(bare), median(cold), median(spare),
                median(cold) / median(bare), median(spare) / median(bare));
}

} // namespace

void openFigures(int rounds) {
    TemporaryFolder folder;
    std::printf("Open to first screen, %dx%d, medians of %d rounds, ms\n", width, height, rounds);
    std::printf("%-22s %9s %9s %9s %11s %11s\n", "", "bare", "cold", "spare", "cold/bare", "spare/bare");
    figuresOf("small (3 pages)", std::string(SAMPLES_FOLDER) + "/tour.docx", rounds);
    figuresOf("medium (20 pages)", longDocument(folder, 20), rounds);
    figuresOf("large (200 pages)", longDocument(folder, 200), rounds);
}
