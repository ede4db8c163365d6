// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/system/support/Bus.h"
#include "tests/system/support/Client.h"
#include "tests/system/support/Subprocess.h"

#include <memory>
#include <string>
#include <vector>

// A service on a private bus, for one series of measurements.
class RunningService {
public:
    RunningService();
    ~RunningService();

    pid_t pid() const { return mService->pid(); }
    // Its engine processes, oldest first.
    std::vector<pid_t> engines() const;
    // Waits until a spare engine stands ready beside `used` engines in use.
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

// The middle of the values; q in 0..1 gives other quantiles.
double quantile(std::vector<double> values, double q);
inline double median(const std::vector<double>& values) {
    return quantile(values, 0.5);
}

// Milliseconds of a steady clock.
double now();

// A generated document of so many pages, with a word put in so many times.
std::string longDocument(const TemporaryFolder& folder, int pages, const std::string& word = "",
                         int hits = 0);

// A generated workbook of so many rows.
std::string longWorkbook(const TemporaryFolder& folder, int rows);

void openFigures(int rounds);
void searchFigures(int rounds);
void paintFigures();
void memoryFigures();
