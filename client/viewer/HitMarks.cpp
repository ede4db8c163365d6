// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/HitMarks.h"

#include <algorithm>

namespace lectern::viewer {

void HitMarks::clear() {
    mVisits.clear();
    mCurrent = -1;
}

void HitMarks::visit(int hit, int part, double place) {
    mVisits[hit] = {part, std::clamp(place, 0.0, 1.0)};
    mCurrent = hit;
}

std::vector<HitMarks::Mark> HitMarks::marks(LecternDocumentKind kind, int part, int parts) const {
    std::vector<Mark> marks;
    for (const auto& [hit, visit] : mVisits) {
        if (kind == LECTERN_DOCUMENT_KIND_SPREADSHEET && visit.part != part) {
            continue;
        }
        const double place = kind == LECTERN_DOCUMENT_KIND_PRESENTATION
                                 ? (visit.part + 0.5) / std::max(1, parts)
                                 : visit.place;
        marks.push_back({place, hit == mCurrent});
    }
    return marks;
}

} // namespace lectern::viewer
