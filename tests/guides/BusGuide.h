// SPDX-License-Identifier: Apache-2.0
// The method descriptions of docs/bus.md.
#pragma once

#include <string>
#include <vector>

struct GuideMethod {
    std::string category; // "/common"
    std::string name;
    std::vector<std::string> required; // parameters, in the order in which they are checked
    std::vector<std::string> optional;
    std::string missing; // the document's text for an error reply to a missing parameter
    std::string reply;   // an example, in JSON; empty for methods that never reply
    std::string paint;   // "before" or "after" the reply; empty without a paint

    // The error text for a missing parameter; `parameter` is an index into `required`.
    std::string missingText(size_t parameter) const;
};

std::vector<GuideMethod> busGuide();
// The document's shell commands, in order.
std::vector<std::string> busGuideCommands();
