// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>

#pragma pack(push, 4)

// The state of a view in its state segment, which clients pass to "create" when they
// open the document again. A wire format of 28 bytes.
struct StateRecord {
    int32_t scrollX; // document pixels
    int32_t scrollY;
    double scale;
    int32_t scaleLevel; // 0 to 2
    // Different for each kind. Word: the character at the stretch's top, then the
    // document row of the stretch's top. Excel: unused, then the current sheet.
    // PPT: unused, then the current slide.
    int32_t extra[2];
};

#pragma pack(pop)

static_assert(sizeof(StateRecord) == 28);
static_assert(offsetof(StateRecord, scale) == 8);
static_assert(offsetof(StateRecord, extra) == 20);
