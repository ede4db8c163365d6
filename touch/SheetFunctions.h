// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/OptionalSymbol.h"
#include "modules/TouchSheetFunctions.h"

// The optional functions of a spreadsheet module; null without them.
struct SheetFunctions {
    explicit SheetFunctions(void* module)
        : getCell(optionalSymbol<decltype(stg_get_cell)>(module, "stg_get_cell")),
          getCells(optionalSymbol<decltype(stg_get_cells)>(module, "stg_get_cells")),
          getTapArea(optionalSymbol<decltype(stg_get_tap_area)>(module, "stg_get_tap_area")),
          setFindOptions(optionalSymbol<decltype(stg_set_find_options)>(module, "stg_set_find_options")) {}

    decltype(&stg_get_cell) getCell;
    decltype(&stg_get_cells) getCells;
    decltype(&stg_get_tap_area) getTapArea;
    decltype(&stg_set_find_options) setFindOptions;
};
