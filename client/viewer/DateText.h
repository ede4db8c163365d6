// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern::viewer {

// An ISO 8601 time in the way of the user's language and time zone; another text as it is.
std::string dateText(const std::string& time);

} // namespace lectern::viewer
