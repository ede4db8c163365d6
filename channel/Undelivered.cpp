// SPDX-License-Identifier: Apache-2.0
#include "channel/Undelivered.h"

#include <algorithm>
#include <utility>

namespace {

int importance(ClientMessageId id) {
    switch (id) {
    case _INVALIDATED:
        return 0;
    case _OPENED:
    case _PAINT_DONE:
    case _DOCUMENT_LOST:
        return 2;
    default:
        return 1;
    }
}

} // namespace

size_t LeastMissed(const std::vector<ServerClientMessage>& waiting, long addressee) {
    const auto rank = [addressee](const ServerClientMessage& message) {
        return std::pair(importance(message.id), message.type != addressee);
    };
    // min_element returns the first of equal records, which is the oldest.
    const auto least = std::min_element(waiting.begin(), waiting.end(),
                                        [&](const auto& a, const auto& b) { return rank(a) < rank(b); });
    return static_cast<size_t>(least - waiting.begin());
}
