// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern::viewer {

// True for addresses of the web and of mail. A document may ask for anything else, such
// as a local file or a program's own scheme, but does not get it.
bool mayOpenLink(const std::string& address);

// The address as it is shown: a character that cannot be seen or that turns the direction of
// writing becomes U+FFFD, and the middle of a long address an ellipsis.
std::string shownLink(const std::string& address);

} // namespace lectern::viewer
