// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <optional>

namespace lectern::gtk4 {

// The pauses before a lost document is opened again: each twice as long as the one
// before, together about 15 seconds, in which a service comes back that an
// administrator restarts.
class RetryPauses {
public:
    // Nothing when it is time to give up.
    std::optional<std::chrono::milliseconds> next() {
        if (mTaken == MOST) {
            return {};
        }
        return FIRST * (1 << mTaken++);
    }
    void startAgain() { mTaken = 0; }

private:
    static constexpr std::chrono::milliseconds FIRST{500};
    static constexpr int MOST = 5;
    int mTaken = 0;
};

} // namespace lectern::gtk4
