// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

// Runs a script with the system's own Python, which has the packages that
// scripts/install-deps installs; what it prints. A script that fails fails the
// test.
std::string python(std::vector<std::string> arguments);

std::vector<std::string> linesOf(const std::string& text);

// What read_workbook.py tells of a workbook: one item a line.
std::vector<std::string> readWorkbook(std::vector<std::string> arguments);
