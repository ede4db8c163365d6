// SPDX-License-Identifier: Apache-2.0
#include "tests/system/support/Python.h"

#include "tests/system/support/Subprocess.h"

#include <gtest/gtest.h>

#include <sstream>

std::string python(std::vector<std::string> arguments) {
    const TemporaryFolder folder;
    arguments.insert(arguments.begin(), {"/usr/bin/python3", "-B"});
    Subprocess process(arguments, {}, folder.path() + "/python");
    EXPECT_EQ(process.wait(std::chrono::seconds(180)), 0) << process.errors();
    return process.output();
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> all;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        all.push_back(line);
    }
    return all;
}

std::vector<std::string> readWorkbook(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), READ_WORKBOOK_SCRIPT);
    return linesOf(python(std::move(arguments)));
}
