// SPDX-License-Identifier: Apache-2.0
// The time of a search from call to reply, compared with the office suite's own search
// for the same text. The time of a step to a hit in another stretch of the text, with
// its paint, compared with the suite's own paint of as many pixels.
#include "bench/service/RunningService.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace {

constexpr int WIDTH = 320;
constexpr int HEIGHT = 480;
constexpr int STRETCH = 1562; // rows of the stretch at this width: 500,000 pixels / WIDTH
constexpr int PAGES = 200;
constexpr char WORD[] = "zebra";

struct Bare {
    double find = 0;
    double paint = 0;
    int hits = 0;
};

Bare bareProgram(const std::string& file, const TemporaryFolder& folder) {
    Subprocess program({BARE_FIND_PROGRAM, file, std::to_string(WIDTH), std::to_string(STRETCH), "72", WORD},
                       {}, folder.path() + "/bare");
    Bare bare;
    if (program.wait(std::chrono::seconds(120)) != std::optional<int>(0) ||
        std::sscanf(program.output().c_str(), "find %lf hits %d paint %lf", &bare.find, &bare.hits,
                    &bare.paint) != 3) {
        throw std::runtime_error("the bare program fails: " + program.errors());
    }
    return bare;
}

// The milliseconds of a call without (`call`) and with (`whole`) the paint after it.
struct Timed {
    double call = 0;
    double whole = 0;
};

Timed timed(RunningService& service, TestDocument& document, const char* method,
            const std::string& more = "") {
    const std::string payload = document.docidPayload();
    const std::string full = payload.substr(0, payload.size() - 1) + more + "}";
    const double start = now();
    service.bus().call("/common", method, full);
    const double replied = now();
    document.paint();
    const double painted = now();
    service.queue().settle(document.store());
    return {replied - start, painted - start};
}

// Does COUNT steps and appends the times of those that moved the stretch.
void stepsOf(RunningService& service, TestDocument& document, const char* method,
             std::vector<double>& moved) {
    constexpr int COUNT = 150;
    for (int i = 0; i < COUNT; ++i) {
        const int before = document.stretchCharacter();
        const double whole = timed(service, document, method).whole;
        if (document.stretchCharacter() != before) {
            moved.push_back(whole);
        }
    }
}

void printRow(const char* label, double ours, double bare) {
    std::printf("%-46s %9.1f %9.1f %9.2f\n", label, ours, bare, ours / bare);
}

void figuresOf(int hits, int rounds) {
    TemporaryFolder folder;
    const std::string file = longDocument(folder, PAGES, WORD, hits);
    std::vector<double> finds, paints, searches, steps, again;
    for (int round = 0; round < rounds; ++round) {
        const Bare bare = bareProgram(file, folder);
        if (bare.hits != hits) {
            throw std::runtime_error("the bare program finds something else");
        }
        finds.push_back(bare.find);
        paints.push_back(bare.paint);
        RunningService service;
        TestDocument document(service.bus(), service.queue(), file, WIDTH, HEIGHT);
        if (document.openResult() != 0 || document.paint() != 0) {
            throw std::runtime_error("cannot open " + file);
        }
        searches.push_back(
            timed(service, document, "Search", std::string(",\"search\":\"") + WORD + "\"").call);
        stepsOf(service, document, "nextResult", steps);
        // Steps back and forth through the same part of the text, in which the positions of
        // the hits are known now.
        stepsOf(service, document, "previousResult", again);
        stepsOf(service, document, "nextResult", again);
    }
    const double paint = median(paints);
    std::printf("\nSearch in %d pages with %d hits, %dx%d, medians of %d rounds, ms\n", PAGES, hits, WIDTH,
                HEIGHT, rounds);
    std::printf("%-46s %9s %9s %9s\n", "", "ours", "suite", "ratio");
    printRow("search, call to reply; the suite's findAll", median(searches), median(finds));
    printRow("step to another stretch; the suite's paint", median(steps), paint);
    printRow("the same, 95 of 100 are faster", quantile(steps, 0.95), paint);
    printRow("the same again, hits' places known", median(again), paint);
}

} // namespace

void searchFigures(int rounds) {
    figuresOf(5000, rounds);
    figuresOf(1000, rounds);
}
