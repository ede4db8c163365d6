// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern::gtk4 {

// The address that a selected text is, such as "www.example.org"; empty if it is none.
std::string linkIn(const std::string& text);

} // namespace lectern::gtk4
