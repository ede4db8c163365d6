// SPDX-License-Identifier: Apache-2.0
// The replies of the methods of "/touch": each function adds members to the object.
#pragma once

#include "touch/TouchTypes.h"

#include <json-c/json.h>

#include <vector>

void addPlace(json_object* reply, const ViewPlace& place);
void addHit(json_object* reply, const HitPlace& hit);
void addSelection(json_object* reply, const Selection& selection);
void addLines(json_object* reply, const std::vector<TextLine>& lines);
void addOutline(json_object* reply, const std::vector<OutlineEntry>& entries);
void addCell(json_object* reply, const Cell& cell);
