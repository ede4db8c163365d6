// SPDX-License-Identifier: Apache-2.0
// A Word view whose members tests can read and set, and functions that compare
// its output with the text.
#pragma once

#include "tests/fakes/word/FakeWordModule.h"
#include "tests/unit/view/TestView.h"
#include "word/Word.h"

#include <algorithm>
#include <cstdint>

class TestWord : public TestView<Word> {
public:
    using TestView::TestView;
    using Word::currentRegion;
    using Word::mHitPosition;
    using Word::mPopupShown;
    using Word::mStretch;
    using Word::mWideMode;

    static constexpr const char* DOCUMENT = "/d/text.doc";
    static constexpr const char* UNREADABLE = "/d/code-8.doc";
    static FakeWordControl& fake() { return fakeWord(); }

    int top() const { return mStretch.top(); }
    int bottom() const { return mStretch.bottom(); }

    // The text row at the view's top, according to the module's position of the stretch.
    int64_t firstTextRow() const { return fakeWord().layout.top + mScroll.y - top(); }
    // Number of rows of the view that should show text and do not.
    int64_t whiteRows() const {
        const FakeWordLayout& text = fakeWord().layout;
        const int64_t textTop = top() - text.top; // document rows of the text
        const int64_t textBottom = textTop + text.rows;
        const int64_t viewTop = std::max<int64_t>(mScroll.y, textTop);
        const int64_t viewBottom = std::min<int64_t>(int64_t{mScroll.y} + mHeight, textBottom);
        const int64_t above = std::min(viewBottom, int64_t{top()}) - viewTop;
        const int64_t below = viewBottom - std::max(viewTop, int64_t{bottom()});
        return std::max<int64_t>(0, above) + std::max<int64_t>(0, below);
    }
};
