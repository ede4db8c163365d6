// SPDX-License-Identifier: Apache-2.0
#include "engine/modules/Losses.h"

namespace lectern::engine {

void Losses::note(Call call, std::int32_t code, TimePoint now) {
    const auto [last, isFirst] = mLast.try_emplace(call, now);
    if (!isFirst && now - last->second < TOO_SOON) {
        giveUp(code);
    }
    last->second = now;
}

void Losses::giveUp(std::int32_t code) {
    std::int32_t none = 0;
    mCode.compare_exchange_strong(none, code);
}

} // namespace lectern::engine
