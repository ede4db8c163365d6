// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"

#include <gio/gio.h>

#include <cstdint>
#include <string>
#include <vector>

namespace lectern::test {

// Choices made from bytes, the same ones for the same bytes. They never run out: after
// the last byte the first one comes again, changed.
class Choices {
public:
    explicit Choices(std::string bytes) : mBytes(std::move(bytes)) {}

    // A number from 0 to below `count`, which is at most 256.
    unsigned below(unsigned count) { return byte() % count; }
    // Any number, most often one at which a check can be wrong.
    std::uint32_t number();

private:
    unsigned byte();

    std::string mBytes;
    std::size_t mNext = 0;
};

// Any value of a type of the engine's protocol.
GLibHolder<GVariant> lieOf(const GVariantType* type, Choices& choices);

// Any answer to a method's call: a result code, which is most often that of success, and
// lies of the right types.
GLibHolder<GVariant> lyingAnswer(const GDBusMethodInfo& method, bool succeeds, Choices& choices);

} // namespace lectern::test
