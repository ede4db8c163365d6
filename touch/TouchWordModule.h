// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/OptionalSymbol.h"
#include "modules/TouchWordFunctions.h"

// The optional functions of the word-processing module. Those that it lacks are null.
struct TouchWordModule {
    explicit TouchWordModule(void* handle)
        : characterAt(optionalSymbol<decltype(wtg_get_character_at)>(handle, "wtg_get_character_at")),
          textSize(optionalSymbol<decltype(wtg_get_text_size)>(handle, "wtg_get_text_size")),
          tapArea(optionalSymbol<decltype(wtg_get_tap_area)>(handle, "wtg_get_tap_area")),
          setFindOptions(optionalSymbol<decltype(wtg_set_find_options)>(handle, "wtg_set_find_options")),
          moveSelectionEnd(
              optionalSymbol<decltype(wtg_move_selection_end)>(handle, "wtg_move_selection_end")),
          selectionRegions(
              optionalSymbol<decltype(wtg_get_selection_regions)>(handle, "wtg_get_selection_regions")),
          textLines(optionalSymbol<decltype(wtg_get_text_lines)>(handle, "wtg_get_text_lines")),
          outline(optionalSymbol<decltype(wtg_get_outline)>(handle, "wtg_get_outline")) {}

    decltype(wtg_get_character_at)* characterAt;
    decltype(wtg_get_text_size)* textSize;
    decltype(wtg_get_tap_area)* tapArea;
    decltype(wtg_set_find_options)* setFindOptions;
    decltype(wtg_move_selection_end)* moveSelectionEnd;
    decltype(wtg_get_selection_regions)* selectionRegions;
    decltype(wtg_get_text_lines)* textLines;
    decltype(wtg_get_outline)* outline;
};
