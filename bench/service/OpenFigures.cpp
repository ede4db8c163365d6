// SPDX-License-Identifier: Apache-2.0
// The time from the call that opens a document to its first frame, compared with a bare
// program that starts the office suite, loads the file, reflows text and paints the
// same region.
#include "bench/service/RunningService.h"

#include <cstdio>
#include <stdexcept>

namespace {

constexpr int WIDTH = 480;
constexpr int HEIGHT = 800;

using Command = std::vector<std::string>;

Command bareText(const std::string& file) {
    return {BARE_PROGRAM, file, std::to_string(WIDTH), std::to_string(HEIGHT), "72"};
}
Command bareOther(const std::string& file) {
    return {BARE_OPEN_PROGRAM, file, std::to_string(WIDTH), std::to_string(HEIGHT)};
}

double bareProgram(const Command& command, const TemporaryFolder& folder) {
    const double start = now();
    Subprocess bare(command, {}, folder.path() + "/bare");
    if (bare.wait(std::chrono::seconds(120)) != std::optional<int>(0)) {
        throw std::runtime_error("the bare program fails: " + bare.errors());
    }
    return now() - start;
}

double firstScreen(RunningService& service, const std::string& file) {
    const double start = now();
    TestDocument document(service.bus(), service.queue(), file, WIDTH, HEIGHT);
    if (document.openResult() != 0 || document.paint() != 0) {
        throw std::runtime_error("cannot open " + file);
    }
    return now() - start;
}

void figuresOf(const char* label, const std::string& file, int rounds,
               Command (*bareOf)(const std::string&)) {
    TemporaryFolder folder;
    std::vector<double> bare, cold, spare;
    for (int round = 0; round < rounds; ++round) {
        bare.push_back(bareProgram(bareOf(file), folder));
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
    std::printf("Open to first screen, %dx%d, medians of %d rounds, ms\n", WIDTH, HEIGHT, rounds);
    std::printf("%-22s %9s %9s %9s %11s %11s\n", "", "bare", "cold", "spare", "cold/bare", "spare/bare");
    const std::string samples = std::string(SAMPLES_FOLDER) + "/";
    figuresOf("text, 3 pages", samples + "tour.docx", rounds, bareText);
    figuresOf("text, 20 pages", longDocument(folder, 20), rounds, bareText);
    figuresOf("text, 200 pages", longDocument(folder, 200), rounds, bareText);
    figuresOf("workbook, 5 sheets", samples + "tour.xlsx", rounds, bareOther);
    figuresOf("workbook, 5,000 rows", longWorkbook(folder, 5000), rounds, bareOther);
    figuresOf("presentation, tour", samples + "tour.pptx", rounds, bareOther);
}
