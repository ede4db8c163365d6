// SPDX-License-Identifier: Apache-2.0
#include "excel/TrackKind.h"

const TrackKind COLUMN_TRACKS = {&CpPoint::x,
                                 &CpPoint::y,
                                 &STGFunc::stg_resize_column,
                                 &STGFunc::stg_select_column,
                                 &STGFunc::stg_hide_columns,
                                 &STGFunc::stg_unhide_columns};

const TrackKind ROW_TRACKS = {&CpPoint::y,
                              &CpPoint::x,
                              &STGFunc::stg_resize_row,
                              &STGFunc::stg_select_row,
                              &STGFunc::stg_hide_rows,
                              &STGFunc::stg_unhide_rows};
