// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <thread>

namespace lectern {

// Shows on standard error that something takes its time: on a terminal a line
// that counts the seconds and goes away at the end, elsewhere one line once.
// Nothing at all while it is quick.
class Progress {
public:
    // activity: what is being done, as in "opening report.docx".
    explicit Progress(std::string activity);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

private:
    void count(const std::stop_token& stop);
    void tellOnce(const std::stop_token& stop);

    std::string mActivity;
    std::jthread mThread; // last: it uses the other
};

} // namespace lectern
