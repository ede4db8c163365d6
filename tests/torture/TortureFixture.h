// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/system/support/ServiceFixture.h"

#include <chrono>
#include <memory>
#include <random>
#include <string>
#include <vector>

// The documents of every kind whose pictures and paint times are watched while something
// happens to others.
class WatchedDocuments {
public:
    WatchedDocuments(BusConnection& bus, Queue& queue, const std::vector<std::string>& paths);

    // Paints each again. A picture that is not as at first counts as changed. Drops the
    // records for another document with this address, which its own client leaves.
    void look(long another = 0);
    // The documents are closed before this object is destroyed.
    void close() { mDocuments.clear(); }

    int changed() const { return mChanged; }
    // "paints: 120, median 1 ms, 99th percentile 12 ms, longest 40 ms".
    std::string times() const;

private:
    void awaitEmptyQueue(long own, long another);

    Queue& mQueue;
    std::vector<std::unique_ptr<TestDocument>> mDocuments;
    std::vector<std::vector<uint32_t>> mPictures;
    std::vector<double> mTimes; // milliseconds
    int mChanged = 0;
};

// What a process holds, to compare before and after.
struct Holdings {
    size_t descriptors = 0;
    size_t kibibytes = 0; // resident and private
    size_t threads = 0;
};

// The service under torture. Each test adds one row to the table of scripts/torture: the
// file that LECTERN_TORTURE_TABLE names. The short form is the default.
class TortureTest : public ServiceTest {
protected:
    // The short form's amount, or that of LECTERN_TORTURE_FULL.
    static int amount(int inShortForm, int inFullForm);
    static void addRow(const std::string& part, const std::string& did, const std::string& saw);

    static std::vector<std::string> tours();
    // Fails the test, with what the service said, if it has ended.
    void expectAlive();
    // Fails the test unless a new document opens and paints.
    void expectServing();
    Holdings holdings() const;
    // Waits until the service holds no more than before, but for so much memory.
    std::string comparison(const Holdings& before, const Holdings& after) const;

    std::mt19937 random{20240229};
    unsigned below(unsigned count) { return static_cast<unsigned>(random() % count); }
};
