// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/OptionalSymbol.h"
#include "modules/TouchSlideFunctions.h"

// The optional functions of a presentation module; null where it lacks one.
struct SlideFunctions {
    explicit SlideFunctions(void* module)
        : setFindOptions(optionalSymbol<decltype(sstg_set_find_options)>(module, "sstg_set_find_options")),
          getLink(optionalSymbol<decltype(sstg_get_link)>(module, "sstg_get_link")),
          getShapeArea(optionalSymbol<decltype(sstg_get_shape_area)>(module, "sstg_get_shape_area")),
          getTextLines(optionalSymbol<decltype(sstg_get_text_lines)>(module, "sstg_get_text_lines")) {}

    decltype(&sstg_set_find_options) setFindOptions;
    decltype(&sstg_get_link) getLink;
    decltype(&sstg_get_shape_area) getShapeArea;
    decltype(&sstg_get_text_lines) getTextLines;
};
