// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/gtk4/Geometry.h"

#include <lectern-glib/lectern-glib.h>

#include <vector>

namespace lectern::gtk4 {

// How a selection comes to reach from a fixed place to a pointer, on either side of it.
class SelectionReach {
public:
    // A call: moves an end of the selection, or selects the word or cell at a point.
    struct Step {
        enum class Kind { SelectWord, MoveStart, MoveEnd };
        Kind kind;
        Point at;

        friend bool operator==(const Step& a, const Step& b) = default;
    };

    // Where the selection begins if it reaches forwards, and where it ends if it reaches
    // backwards: both sides of a word, or the same point twice.
    struct Anchor {
        Point start;
        Point end;
    };

    // hasCells: of a sheet. lineHeight: points so near above or below are on one line.
    SelectionReach(const Anchor& anchor, bool hasCells, double lineHeight)
        : mAnchor(anchor), mHasCells(hasCells), mLineHeight(lineHeight) {}

    std::vector<Step> stepsTo(Point to) { return mHasCells ? cellStepsTo(to) : textStepsTo(to); }

    // The document has moved under the pointer.
    void moveAnchor(Point way) {
        mAnchor.start = mAnchor.start + way;
        mAnchor.end = mAnchor.end + way;
    }

private:
    // The far end comes first: ends never pass each other, so the near one would stop at
    // the far one otherwise.
    std::vector<Step> textStepsTo(Point to) const {
        if (isBefore(to, mAnchor.start)) {
            return {{Step::Kind::MoveStart, to}, {Step::Kind::MoveEnd, mAnchor.end}};
        }
        return {{Step::Kind::MoveEnd, to}, {Step::Kind::MoveStart, mAnchor.start}};
    }

    // The ends of cells are corners, which change places when they pass each other. So the
    // selection begins anew unless both places are to the right of and below the anchor.
    std::vector<Step> cellStepsTo(Point to) {
        const bool isAfter = to.x >= mAnchor.start.x && to.y >= mAnchor.start.y;
        const bool wasAfter = mIsAfter;
        mIsAfter = isAfter;
        if (isAfter && wasAfter) {
            return {{Step::Kind::MoveEnd, to}};
        }
        return {{Step::Kind::SelectWord, mAnchor.start}, {Step::Kind::MoveEnd, to}};
    }

    bool isBefore(Point a, Point b) const {
        return a.y < b.y - mLineHeight / 2 || (a.y <= b.y + mLineHeight / 2 && a.x < b.x);
    }

    Anchor mAnchor;
    bool mHasCells;
    double mLineHeight;
    bool mIsAfter = true;
};

} // namespace lectern::gtk4
