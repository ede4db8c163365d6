// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/system/support/Bus.h"
#include "tests/system/support/Client.h"
#include "tests/system/support/Subprocess.h"

#include <memory>
#include <string>
#include <vector>

// Runs a service on a private bus for one series of measurements. Stops it when
// destroyed.
class RunningService {
public:
    RunningService();
    ~RunningService();

    pid_t pid() const { return mService->pid(); }
    // The service's engine processes, oldest first.
    std::vector<pid_t> engines() const;
    // Waits until a spare engine is ready besides `used` engines in use.
    void waitForSpare(size_t used) const;

    BusConnection& bus() { return *mClient; }
    Queue& queue() { return *mQueue; }

private:
    TemporaryFolder mFolder;
    PrivateBus mBus;
    std::unique_ptr<Subprocess> mService;
    std::unique_ptr<BusConnection> mClient;
    std::unique_ptr<Queue> mQueue;
};

// The quantile q (0 to 1) of the values. REQUIRES: there is at least one value.
double quantile(std::vector<double> values, double q);
inline double median(const std::vector<double>& values) {
    return quantile(values, 0.5);
}

// The time of the monotonic clock in milliseconds.
double now();

// Generates a word-processing document with `pages` pages that contains `word` `hits`
// times, and returns its path.
std::string longDocument(const TemporaryFolder& folder, int pages, const std::string& word = "",
                         int hits = 0);

// Generates a workbook with `rows` rows and returns its path.
std::string longWorkbook(const TemporaryFolder& folder, int rows);

void openFigures(int rounds);
void searchFigures(int rounds);
void paintFigures();
void memoryFigures();
