// SPDX-License-Identifier: Apache-2.0
// The methods of the category "/common": documents of every kind.
#pragma once

#include <lectern/Bus.h>

#include <string>

#pragma GCC visibility push(default)

namespace lectern::common {

// The service's JSON text, unchanged.
Result<std::string> getDocProperties(const Bus& bus, int docid, const CallLimits& limits = {});
// The number of hits; the view moves to the first one from where it is.
Result<int> search(const Bus& bus, int docid, const std::string& text, const CallLimits& limits = {});
Failure nextResult(const Bus& bus, int docid, const CallLimits& limits = {});
Failure previousResult(const Bus& bus, int docid, const CallLimits& limits = {});
Failure closeSearch(const Bus& bus, int docid, const CallLimits& limits = {});
Failure clearSelection(const Bus& bus, int docid, const CallLimits& limits = {});
// May be empty.
Result<std::string> getMimeInfo(const Bus& bus, int docid, const CallLimits& limits = {});

} // namespace lectern::common

#pragma GCC visibility pop
