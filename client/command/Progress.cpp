// SPDX-License-Identifier: Apache-2.0
#include "client/command/Progress.h"

#include "client/command/Pause.h"

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <utility>

namespace lectern {

namespace {

constexpr std::chrono::milliseconds QUICK{500};
constexpr std::chrono::milliseconds QUICK_UNSEEN{5'000}; // when standard error is not a terminal
constexpr std::chrono::milliseconds SECOND{1'000};

} // namespace

Progress::Progress(std::string activity)
    : mActivity(std::move(activity)), mThread([this](const std::stop_token& stop) {
          if (isatty(STDERR_FILENO) != 0) {
              count(stop);
          } else {
              tellOnce(stop);
          }
      }) {}

Progress::~Progress() = default;

void Progress::count(const std::stop_token& stop) {
    if (!pauseFor(QUICK, stop)) {
        return;
    }
    int seconds = 0;
    do {
        std::fprintf(stderr, "\rlectern: %s ... %d s", mActivity.c_str(), seconds++);
    } while (pauseFor(SECOND, stop));
    std::fputs("\r\033[K", stderr);
}

void Progress::tellOnce(const std::stop_token& stop) {
    if (pauseFor(QUICK_UNSEEN, stop)) {
        std::fprintf(stderr, "lectern: %s ...\n", mActivity.c_str());
    }
}

} // namespace lectern
