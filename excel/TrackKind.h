// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/STGFunc.h"
#include "raster/CpPoint.h"

// Columns and rows are called tracks. This record describes one of the two kinds, so
// that the same code works for both. The module identifies a track by any document
// pixel inside it.
struct TrackKind {
    int CpPoint::*along;  // the axis on which the tracks follow each other
    int CpPoint::*across; // the other axis
    // The module's functions for them.
    decltype(STGFunc::stg_resize_column) STGFunc::*resize;
    decltype(STGFunc::stg_select_column) STGFunc::*select;
    decltype(STGFunc::stg_hide_columns) STGFunc::*hide;
    decltype(STGFunc::stg_unhide_columns) STGFunc::*unhide;
};

extern const TrackKind COLUMN_TRACKS;
extern const TrackKind ROW_TRACKS;
