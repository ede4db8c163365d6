// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

// Runs a script with the system's Python, which has the packages installed by
// scripts/install-deps; returns its output. A script that fails fails the test.
std::string python(std::vector<std::string> arguments);

std::vector<std::string> linesOf(const std::string& text);

// The output of read_workbook.py: one item per line.
std::vector<std::string> readWorkbook(std::vector<std::string> arguments);
