// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern-glib/lectern-types.h>

#include <map>
#include <vector>

namespace lectern::viewer {

// Where the hits of a search lie beside the scrollbar. The service tells the place of a hit
// only when a step goes to it, so the marks are those of the hits that were visited.
class HitMarks {
public:
    struct Mark {
        double place; // 0 at the upper end of the scrollbar, 1 at its lower end
        bool isCurrent;
        bool operator==(const Mark&) const = default;
    };

    void clear();
    // A step went to this hit. `place` is the middle of the view in the text, sheet or slide,
    // from 0 to 1.
    void visit(int hit, int part, double place);

    // In texts by their place; in presentations by their slide; in spreadsheets by their
    // place, and only those of the shown sheet.
    std::vector<Mark> marks(LecternDocumentKind kind, int part, int parts) const;

private:
    struct Visit {
        int part;
        double place;
    };
    std::map<int, Visit> mVisits;
    int mCurrent = -1;
};

} // namespace lectern::viewer
