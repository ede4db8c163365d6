// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern::engine {

// The language whose formats of numbers and dates a workbook shows where it
// leaves them to the reader, such as "en-US". Without one the suite reads the dates of
// .xls files in the built-in formats 14 to 17 as a day and a month: 07/01 for Jul-01.
std::string readersLanguage();

} // namespace lectern::engine
