// SPDX-License-Identifier: Apache-2.0
#include "channel/Backlog.h"

#include <algorithm>

void Backlog::push(const ClientServerMessage& message) {
    if (mSize == CAPACITY) {
        dropFirst(leastNeeded());
    }
    mByType[message.type].push_back({mArrivals++, message});
    ++mSize;
}

ClientServerMessage Backlog::pop() {
    const auto lowest = mByType.begin();
    const ClientServerMessage message = lowest->second.front().message;
    dropFirst(lowest);
    return message;
}

ClientServerMessage Backlog::popOldest() {
    const auto oldest = std::min_element(mByType.begin(), mByType.end(), [](const auto& a, const auto& b) {
        return a.second.front().arrival < b.second.front().arrival;
    });
    const ClientServerMessage message = oldest->second.front().message;
    dropFirst(oldest);
    return message;
}

Backlog::ByType::iterator Backlog::leastNeeded() {
    if (const auto moves = mByType.find(_PEN_MOVE); moves != mByType.end()) {
        return moves;
    }
    return std::min_element(mByType.begin(), mByType.end(), [](const auto& a, const auto& b) {
        const bool aIsPaint = a.first == _PAINT;
        const bool bIsPaint = b.first == _PAINT;
        return aIsPaint != bIsPaint ? bIsPaint : a.second.front().arrival < b.second.front().arrival;
    });
}

void Backlog::dropFirst(ByType::iterator queue) {
    queue->second.pop_front();
    if (queue->second.empty()) {
        mByType.erase(queue);
    }
    --mSize;
}
