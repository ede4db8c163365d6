// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Office.h"

#include <memory>
#include <string>

namespace lectern::engine {

// Answers the service's calls in the turns of the suite's main loop.
class EngineLoop : public Office::Turn {
public:
    // Takes ownership of the socket, over which the calls come. `folder` receives
    // temporary copies. Returns null when the connection cannot be made; later the
    // lifeline ends the process with the connection. `office` must outlive the loop.
    static std::unique_ptr<EngineLoop> connect(int socket, Office& office, const std::string& folder);
    ~EngineLoop() override;
    EngineLoop(const EngineLoop&) = delete;
    EngineLoop& operator=(const EngineLoop&) = delete;

    void take(std::chrono::microseconds longest) override;
    void wake() override;

private:
    struct State;
    explicit EngineLoop(std::unique_ptr<State> state);
    std::unique_ptr<State> mState;
};

} // namespace lectern::engine
