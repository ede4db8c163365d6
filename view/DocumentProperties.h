// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/JsonReply.h"

#include <cstdint>
#include <ctime>

// The property functions of a rendering module. All three modules have them with the
// same signatures.
struct PropertyFunctions {
    int32_t (*name)(void* doc, uint16_t* text, int32_t capacityBytes, int32_t* length);
    int32_t (*author)(void* doc, uint16_t* text, int32_t capacityBytes, int32_t* length);
    int32_t (*description)(void* doc, uint16_t* text, int32_t capacityBytes, int32_t* length);
    int32_t (*lastSavedDate)(void* doc, time_t* time);
    int32_t (*creationDate)(void* doc, time_t* time);
};

// Returns an object with the members "name", "author", "description", "lastsave" and
// "createdate", in this order. A text of more than 2047 UTF-16 units is replaced by
// "(no name)", "(no author)" or "(no description)". If doc is null, every member is
// empty and no function is called. Returns null if out of memory.
JsonOwner documentProperties(void* doc, const PropertyFunctions& functions);
