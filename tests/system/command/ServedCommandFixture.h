// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/system/support/ServiceFixture.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

// What a run of the command gave.
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

// The built command on the test's bus, whose service it finds there.
class CommandTest : public ServiceTest {
protected:
    Outcome lectern(std::vector<std::string> arguments,
                    const std::map<std::string, std::string>& environment = {});
    // The same, for a run that must succeed in silence: its output.
    std::string done(const std::vector<std::string>& arguments);
    // The picture that "lectern open FILE" writes with these options.
    Picture opened(const std::string& file, const std::vector<std::string>& options);
    // Lines that office_facts.py prints.
    std::vector<std::string> facts(const std::string& what, const std::string& file);

    static Picture readPicture(const std::string& path);
    // What a client that shares no code with the command sees.
    static Picture seenBy(const TestDocument& document);
};
