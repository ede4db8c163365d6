// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/STGFunc.h"
#include "raster/CpPoint.h"

// What there is to columns and rows alike, so that what works on one of them
// works on both: each lies at a place on its axis, and any document pixel inside
// it stands for it.
struct TrackKind {
    int CpPoint::*along;  // the axis that they follow one another on
    int CpPoint::*across; // the other one
    // The module's functions for them.
    decltype(STGFunc::stg_resize_column) STGFunc::*resize;
    decltype(STGFunc::stg_select_column) STGFunc::*select;
    decltype(STGFunc::stg_hide_columns) STGFunc::*hide;
    decltype(STGFunc::stg_unhide_columns) STGFunc::*unhide;
};

extern const TrackKind COLUMN_TRACKS;
extern const TrackKind ROW_TRACKS;
