// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern::engine {

// The file: URL of an absolute path; every byte that is not plain in a URL is
// percent-encoded.
std::string fileUrl(const std::string& path);

} // namespace lectern::engine
