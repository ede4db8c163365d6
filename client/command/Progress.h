// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <thread>

namespace lectern {

// Shows on standard error that work takes a while: on a terminal as a line that
// counts seconds and disappears at the end, otherwise once as one line. Shows
// nothing for quick work.
class Progress {
public:
    // activity: describes the work, for example "opening report.docx".
    explicit Progress(std::string activity);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

private:
    void count(const std::stop_token& stop);
    void tellOnce(const std::stop_token& stop);

    std::string mActivity;
    std::jthread mThread; // last, because it uses mActivity
};

} // namespace lectern
