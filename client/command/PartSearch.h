// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Document.h>

#include <string>
#include <vector>

namespace lectern {

// The hits on one sheet or slide.
struct PartHits {
    int part = 0; // from 0
    int hits = 0; // at least 1
    bool operator==(const PartHits&) const = default;
};

// Search each sheet, or each slide, of a document of that kind. Return the parts that
// have hits, in their order. With classic manners a slide whose note alone has the text
// counts as one hit; with touch manners notes do not count. They move the view, and the
// hits found last stay marked.
Result<std::vector<PartHits>> searchSheets(Document& document, const std::string& text,
                                           const CallLimits& limits);
Result<std::vector<PartHits>> searchSlides(Document& document, const std::string& text,
                                           const CallLimits& limits);

} // namespace lectern
