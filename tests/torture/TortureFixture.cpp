// SPDX-License-Identifier: Apache-2.0
#include "tests/torture/TortureFixture.h"

#include <sched.h>
#include <sys/msg.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>

namespace {

constexpr int WIDTH = 480;
constexpr int HEIGHT = 800;

std::vector<uint32_t> pictureOf(const TestDocument& document) {
    // Without the last pixel, which holds the status byte.
    return {document.frame(), document.frame() + document.width() * document.height() - 1};
}

// A number of a line "NAME: 123 kB" of a status file.
size_t numberIn(const std::string& text, const std::string& name) {
    const size_t at = text.find(name);
    return at == std::string::npos ? 0 : std::stoul(text.substr(at + name.size() + 1));
}

} // namespace

WatchedDocuments::WatchedDocuments(BusConnection& bus, Queue& queue, const std::vector<std::string>& paths)
    : mQueue(queue) {
    for (const std::string& path : paths) {
        mDocuments.push_back(std::make_unique<TestDocument>(bus, queue, path, WIDTH, HEIGHT));
        mDocuments.back()->paint();
        mPictures.push_back(pictureOf(*mDocuments.back()));
    }
}

void WatchedDocuments::awaitEmptyQueue(long own, long another) {
    msqid_ds status{};
    while (msgctl(mQueue.id(), IPC_STAT, &status) == 0 && status.msg_qnum > 0) {
        if (mQueue.poll(own).id < 0 && (another == 0 || mQueue.poll(another).id < 0)) {
            sched_yield();
        }
    }
}

void WatchedDocuments::look(long another) {
    constexpr long KEY_UP = 3; // makes the next request paint again
    for (size_t i = 0; i < mDocuments.size(); ++i) {
        TestDocument& document = *mDocuments[i];
        const auto start = std::chrono::steady_clock::now();
        mQueue.post(KEY_UP, document.docid());
        awaitEmptyQueue(document.store(), another);
        document.paint();
        const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
        mTimes.push_back(taken.count());
        mChanged += pictureOf(document) == mPictures[i] ? 0 : 1;
    }
}

std::string WatchedDocuments::times() const {
    std::vector<double> sorted = mTimes;
    std::sort(sorted.begin(), sorted.end());
    const auto at = [&](size_t percent) {
        return static_cast<int>(sorted.empty() ? 0 : sorted[(sorted.size() - 1) * percent / 100] + 0.5);
    };
    std::ostringstream text;
    text << sorted.size() << " paints of others, median " << at(50) << " ms, 99th percentile " << at(99)
         << " ms, longest " << at(100) << " ms";
    return text.str();
}

int TortureTest::amount(int inShortForm, int inFullForm) {
    return std::getenv("LECTERN_TORTURE_FULL") != nullptr ? inFullForm : inShortForm;
}

void TortureTest::addRow(const std::string& part, const std::string& did, const std::string& saw) {
    const std::string row = "| " + part + " | " + did + " | " + saw + " |\n";
    std::cout << row;
    if (const char* const table = std::getenv("LECTERN_TORTURE_TABLE")) {
        std::ofstream(table, std::ios::app) << row;
    }
}

std::vector<std::string> TortureTest::tours() {
    return {sample("tour.docx"), sample("tour.xlsx"), sample("tour.pptx")};
}

void TortureTest::expectAlive() {
    ASSERT_FALSE(service->wait(std::chrono::milliseconds(0)).has_value()) << service->errors();
}

void TortureTest::expectServing() {
    expectAlive();
    TestDocument next(*client, *queue, sample("tour.docx"), WIDTH, HEIGHT);
    ASSERT_EQ(next.openResult(), 0) << next.reply() << service->errors();
    ASSERT_EQ(next.paint(), 0);
}

Holdings TortureTest::holdings() const {
    const std::string process = "/proc/" + std::to_string(service->pid());
    const auto files = std::filesystem::directory_iterator(process + "/fd");
    const std::string status = readFile(process + "/status");
    return {static_cast<size_t>(std::distance(begin(files), end(files))), numberIn(status, "RssAnon:"),
            numberIn(status, "Threads:")};
}

std::string TortureTest::comparison(const Holdings& before, const Holdings& after) const {
    std::ostringstream text;
    text << "descriptors " << before.descriptors << " → " << after.descriptors << ", threads "
         << before.threads << " → " << after.threads << ", memory " << before.kibibytes / 1024 << " → "
         << after.kibibytes / 1024 << " MiB";
    return text.str();
}
