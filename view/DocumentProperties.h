// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/JsonReply.h"

#include <cstdint>
#include <ctime>

// The property functions of a rendering module; they look alike in all three.
struct PropertyFunctions {
    int32_t (*name)(void* doc, uint16_t* text, int32_t capacityBytes, int32_t* length);
    int32_t (*author)(void* doc, uint16_t* text, int32_t capacityBytes, int32_t* length);
    int32_t (*description)(void* doc, uint16_t* text, int32_t capacityBytes, int32_t* length);
    int32_t (*lastSavedDate)(void* doc, time_t* time);
    int32_t (*creationDate)(void* doc, time_t* time);
};

// The members "name", "author", "description", "lastsave" and "createdate", in
// this order. A text of more than 2047 units is replaced by a note that there
// is none. Of a null document every member is the empty text, and no function
// is called. Null when the object could not be made.
JsonOwner documentProperties(void* doc, const PropertyFunctions& functions);
