// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/system/support/ServiceFixture.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

// The result of a run of the command.
struct Outcome {
    int status = -1; // exit status, or -1 when it did not exit by itself
    std::string output;
    std::string errors;
};

// The pixels of a PNG file, 0xRRGGBB.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<uint32_t> pixels;
    bool operator==(const Picture&) const = default;
};

// Runs the built command with the test's bus and the service on it.
class CommandTest : public ServiceTest {
protected:
    Outcome lectern(std::vector<std::string> arguments,
                    const std::map<std::string, std::string>& environment = {});
    // The same for a run that must succeed without messages; returns its output.
    std::string done(const std::vector<std::string>& arguments);
    // The picture that "lectern open --classic FILE" writes with these options.
    Picture opened(const std::string& file, const std::vector<std::string>& options);
    // Lines printed by office_facts.py.
    std::vector<std::string> facts(const std::string& what, const std::string& file);

    static Picture readPicture(const std::string& path);
    // The picture that a client sees which shares no code with the command.
    static Picture seenBy(const TestDocument& document);
};
