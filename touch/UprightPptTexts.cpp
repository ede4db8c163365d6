// SPDX-License-Identifier: Apache-2.0
// The text on the slide, its selection and marks; titles and thumbnails.
#include "touch/UprightPpt.h"
#include "view/DrawingBudget.h"
#include "view/ModuleArray.h"
#include "view/TextHelpers.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr uint32_t CURRENT_HIT_COLOUR = 0x40FF0000;
constexpr uint32_t SELECTION_COLOUR = 0x603399FF;
constexpr size_t TITLE_CAPACITY = 1024; // UTF-16 units

int prvOn(int place, int length, int from, int shownLength) {
    const double share = static_cast<double>(place) / std::max(1, length);
    return saturateToInt(std::round(from + share * shownLength));
}

// Where a rectangle of a picture lies if that is shown in another.
CpRect prvShown(const CpRect& r, const CpPixmap& picture, const CpRect& in) {
    return {prvOn(r.Left(), picture.Width(), in.Left(), in.Width()),
            prvOn(r.Top(), picture.Height(), in.Top(), in.Height()),
            prvOn(r.Right(), picture.Width(), in.Left(), in.Width()),
            prvOn(r.Bottom(), picture.Height(), in.Top(), in.Height())};
}

} // namespace

const SlideText* UprightPpt::slideText() {
    if (mOptional.getTextLines == nullptr || !hasPicture()) {
        return nullptr;
    }
    if (mTextOf != rendering()) {
        const sstg_text_line* lines = nullptr;
        int32_t count = 0;
        if (mOptional.getTextLines(mDocument, mCurrentSlide, mSurface->Width(), mSurface->Height(), &count,
                                   &lines) != 0) {
            return nullptr;
        }
        mText = SlideText(moduleArray(lines, count));
        mTextOf = rendering();
    }
    return &mText;
}

TouchResult UprightPpt::visibleText(std::vector<TextLine>& lines) {
    if (mOptional.getTextLines == nullptr) {
        return TouchResult::NotSupported;
    }
    const SlideText* text = slideText();
    if (text == nullptr) {
        return TouchResult::Failed;
    }
    const CpPoint end = onSurface({mWidth, mHeight});
    lines = text->linesIn(CpRect(mScroll, end));
    for (TextLine& line : lines) {
        line.place = onView(line.place);
    }
    return TouchResult::Ok;
}

TouchResult UprightPpt::select(SelectUnit unit, const CpPoint& point) {
    clearSelection();
    InvalidateScreen();
    if (unit == SelectUnit::None) {
        return TouchResult::Ok;
    }
    if (mOptional.getTextLines == nullptr) {
        return TouchResult::NotSupported;
    }
    const SlideText* text = slideText();
    if (text == nullptr) {
        return TouchResult::Failed;
    }
    const int tapped = unit == SelectUnit::All ? 0 : text->unitAt(onSurface(point));
    const UnitRange range = unit == SelectUnit::All    ? text->all()
                            : tapped < 0               ? UnitRange()
                            : unit == SelectUnit::Word ? text->wordAt(tapped)
                                                       : text->lineAt(tapped);
    if (range.isEmpty()) {
        return TouchResult::NothingThere;
    }
    mSelected = range;
    mSelectedSlide = mCurrentSlide;
    return TouchResult::Ok;
}

// Keeps at least one unit between the ends.
TouchResult UprightPpt::moveSelectionEnd(SelectEnd end, const CpPoint& point) {
    const SlideText* text = mSelectedSlide == mCurrentSlide ? slideText() : nullptr;
    const int boundary = text != nullptr ? text->boundaryAt(onSurface(point)) : -1;
    if (boundary < 0) {
        return TouchResult::NothingThere;
    }
    if (end == SelectEnd::Start) {
        mSelected.start = std::min(boundary, mSelected.end - 1);
    } else {
        mSelected.end = std::max(boundary, mSelected.start + 1);
    }
    InvalidateScreen();
    return TouchResult::Ok;
}

TouchResult UprightPpt::selection(Selection& selection) {
    const SlideText* text = mSelectedSlide == mCurrentSlide ? slideText() : nullptr;
    if (text == nullptr) {
        return TouchResult::NothingThere;
    }
    selection.text = text->textOf(mSelected);
    selection.rectangles.clear();
    for (const CpRect& r : text->rectanglesOf(mSelected)) {
        selection.rectangles.push_back(onView(r));
    }
    return TouchResult::Ok;
}

int UprightPpt::clearSelection() {
    mSelectedSlide = -1;
    return 0;
}

void UprightPpt::drawMarks(CpPixmap& frame, const CpRect& slide) {
    DrawingBudget budget(frame);
    const auto mark = [&](const CpRect& place, uint32_t colour) {
        CpRect shown = prvShown(place, *mSurface, slide);
        if (budget.coversRect(shown)) {
            frame.DrawAlphaRectOnPix(shown, colour);
        }
    };
    fetchCurrentRegions();
    if (const sstg_find_region* region = currentRegion()) {
        for (const module_rect& r : std::span(region->rectangles, region->rectangle_count)) {
            mark({r.x, r.y, saturatedSum(r.x, r.width), saturatedSum(r.y, r.height)}, CURRENT_HIT_COLOUR);
        }
    }
    if (const SlideText* text = mSelectedSlide == mCurrentSlide ? slideText() : nullptr) {
        for (const CpRect& r : text->rectanglesOf(mSelected)) {
            mark(r, SELECTION_COLOUR);
        }
    }
}

TouchResult UprightPpt::outline(std::vector<OutlineEntry>& entries) {
    entries.clear();
    for (int slide = 0; slide < mSlideCount; ++slide) {
        std::vector<uint16_t> title(TITLE_CAPACITY);
        int32_t length = 0;
        mModule.sstg_get_slide_title(mDocument, slide, title.data(), static_cast<int32_t>(title.size()),
                                     &length); // if it fails, the slide has no title
        entries.push_back({utf8OfBuffer(title), 0, slide});
    }
    return TouchResult::Ok;
}

TouchResult UprightPpt::goTo(int entry) {
    if (entry < 0 || entry >= mSlideCount) {
        return TouchResult::OutOfRange;
    }
    jumpToSlide(entry);
    InvalidateScreen();
    return TouchResult::Ok;
}

TouchResult UprightPpt::thumbnail(int part, uint32_t* pixels, int width, int height) {
    if (part < 0 || part >= mSlideCount) {
        return TouchResult::OutOfRange;
    }
    eraseBuffer(pixels, static_cast<unsigned int>(width) * static_cast<unsigned int>(height));
    if (mSlideWidth < 1) {
        return TouchResult::Failed;
    }
    const double scale =
        std::min(static_cast<double>(width) / mSlideWidth, static_cast<double>(height) / mSlideHeight);
    CpPixmap picture(std::clamp(saturateToInt(std::round(mSlideWidth * scale)), 1, width),
                     std::clamp(saturateToInt(std::round(mSlideHeight * scale)), 1, height));
    if (picture.Pixels() == nullptr) {
        return TouchResult::Failed;
    }
    mRenderedAnother = true;
    if (mModule.sstg_render_slide(mDocument, part, 0, picture.Pixels(), picture.Width(), picture.Height()) !=
        0) {
        return TouchResult::Failed;
    }
    const CpPoint at((width - picture.Width()) / 2, (height - picture.Height()) / 2);
    picture.CopyBitsTo(CpRect(0, 0, picture.Width(), picture.Height()), pixels, CpRect(at, at), width);
    return TouchResult::Ok;
}
