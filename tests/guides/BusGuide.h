// SPDX-License-Identifier: Apache-2.0
// What docs/bus.md says of the methods.
#pragma once

#include <string>
#include <vector>

struct GuideMethod {
    std::string category; // "/common"
    std::string name;
    std::vector<std::string> required; // parameters, in the order of the checks
    std::vector<std::string> optional;
    std::string missing; // as it stands there: what is answered without a parameter
    std::string reply;   // an example, in JSON; empty for methods that never answer
    std::string paint;   // "before" or "after" the reply; else there is none

    // The text for a missing parameter, by its place in `required`.
    std::string missingText(size_t parameter) const;
};

std::vector<GuideMethod> busGuide();
// The commands for a shell, in order.
std::vector<std::string> busGuideCommands();
