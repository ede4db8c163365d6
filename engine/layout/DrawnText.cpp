// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/DrawnText.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace lectern::engine {

namespace {

// Extent of a line above and below the baseline in common fonts, as a share of
// the font's height.
constexpr double ASCENT = 0.95;
constexpr double DESCENT = 0.25;

void extend(DrawnBox& box, double x, double y) {
    box.left = std::min(box.left, x);
    box.top = std::min(box.top, y);
    box.right = std::max(box.right, x);
    box.bottom = std::max(box.bottom, y);
}

// Distances along the baseline from the start of the run to the left and the
// right edge of units [first, last), which are counted from the run's first unit.
std::pair<double, double> extent(const TextRun& run, uint32_t first, uint32_t last) {
    const double from = first == 0 ? 0 : run.ends[first - 1];
    const double to = run.ends[last - 1];
    if (!run.rightToLeft) {
        return {from, to};
    }
    const double whole = run.ends.back();
    return {whole - to, whole - from};
}

DrawnBox boxOf(const TextRun& run, CharacterRange range) {
    const uint32_t first = std::max(range.start, run.start) - run.start;
    const uint32_t last = std::min(range.end, run.end()) - run.start;
    const auto [from, to] = extent(run, first, last);
    const double cosine = std::cos(run.angle);
    const double sine = std::sin(run.angle);
    DrawnBox box{run.x + from * cosine, run.y - from * sine, run.x + from * cosine, run.y - from * sine};
    for (const double along : {from, to}) {
        for (const double up : {ASCENT * run.height, -DESCENT * run.height}) {
            extend(box, run.x + along * cosine - up * sine, run.y - along * sine - up * cosine);
        }
    }
    return box;
}

} // namespace

void DrawnText::append(const DrawnText& other) {
    if (other.runs.empty()) {
        return;
    }
    uint32_t line = 0;
    if (!runs.empty()) {
        text += PARAGRAPH_SEPARATOR;
        line = runs.back().line + 1;
    }
    const auto start = static_cast<uint32_t>(text.size());
    text += other.text;
    for (TextRun run : other.runs) {
        run.start += start;
        run.line += line;
        runs.push_back(std::move(run));
    }
    for (DrawnLink link : other.links) {
        link.characters.start += start;
        link.characters.end += start;
        links.push_back(std::move(link));
    }
}

std::vector<DrawnLine> DrawnText::lines() const {
    std::vector<DrawnLine> lines;
    int32_t paragraph = 0;
    for (size_t i = 0; i < runs.size(); ++i) {
        if (i > 0 && runs[i].line == runs[i - 1].line) {
            continue;
        }
        const uint32_t start = runs[i].start;
        if (!lines.empty()) {
            CharacterRange& before = lines.back().characters;
            const bool isNext = text[start - 1] == PARAGRAPH_SEPARATOR;
            before.end = isNext ? start - 1 : start;
            paragraph += isNext ? 1 : 0;
        }
        lines.push_back({{start, static_cast<uint32_t>(text.size())}, paragraph});
    }
    return lines;
}

std::vector<DrawnBox> DrawnText::boxes(CharacterRange range) const {
    std::vector<DrawnBox> lines;
    std::optional<uint32_t> line;
    auto run = std::partition_point(runs.begin(), runs.end(),
                                    [&](const TextRun& candidate) { return candidate.end() <= range.start; });
    for (; run != runs.end() && run->start < range.end; ++run) {
        const DrawnBox box = boxOf(*run, range);
        if (line == run->line) {
            extend(lines.back(), box.left, box.top);
            extend(lines.back(), box.right, box.bottom);
        } else {
            lines.push_back(box);
            line = run->line;
        }
    }
    return lines;
}

} // namespace lectern::engine
