// SPDX-License-Identifier: Apache-2.0
// Taps: links, and references to secondary documents.
#include "raster/Saturate.h"
#include "word/Word.h"

namespace {

enum ClickType : int32_t {
    FOOTNOTE = 2,
    ENDNOTE = 3,
    COMMENT = 4,
    OTHER_SECONDARY = 5,
    HYPERLINK = 6,
    INTERNAL_LINK = 7,
};

} // namespace

bool Word::handleClick(int x, int y) {
    if (mGestureActive) {
        return true;
    }
    mClicked = true;
    if (closePopup()) {
        settle();
        InvalidateScreen();
        return true;
    }
    const wtg_click_info* info = nullptr;
    if (mDocPixmap != nullptr) {
        const int column = saturatedSum(saturatedDifference(mScroll.x, mDocPixmap->Left()), x);
        const int row = saturatedSum(saturatedDifference(mScroll.y, mDocPixmap->Top()), y);
        mModule.wtg_get_click_info(mDocument, column, row, &info);
    }
    switch (info != nullptr ? info->type : 0) {
    case HYPERLINK:
        hyperlinkTapped(reinterpret_cast<const uint16_t*>(info->a));
        return true;
    case INTERNAL_LINK:
        if (jumpToCharacter(static_cast<int32_t>(info->a), static_cast<uint32_t>(info->b))) {
            mScroll.x = 0;
        }
        return true;
    case FOOTNOTE:
    case ENDNOTE:
    case COMMENT:
    case OTHER_SECONDARY:
        return showPopup(*info);
    default:
        return OfficeBase::handleClick(x, y);
    }
}

void Word::hyperlinkTapped(const uint16_t* /*target*/) {
    SendDocMessage(_HYPERLINK);
}
