// SPDX-License-Identifier: Apache-2.0
#include "service/DocumentKind.h"

#include <gtest/gtest.h>

namespace {

TEST(KindOf, GoesByTheExtensionInAnyCase) {
    EXPECT_EQ(KindOf("/a/b.doc"), _WORD);
    EXPECT_EQ(KindOf("b.DOCX"), _WORD);
    EXPECT_EQ(KindOf("notes.Txt"), _WORD);
    EXPECT_EQ(KindOf("t.xls"), _EXCEL);
    EXPECT_EQ(KindOf("t.XlSx"), _EXCEL);
    EXPECT_EQ(KindOf("t.ppt"), _PPT);
    EXPECT_EQ(KindOf("t.PPTX"), _PPT);
}

TEST(KindOf, TheLastDotCounts) {
    EXPECT_EQ(KindOf("a.xls.doc"), _WORD);
    EXPECT_EQ(KindOf(".doc"), _WORD);
    EXPECT_EQ(KindOf("a.doc."), _UNKNOWN);
    EXPECT_EQ(KindOf("/home/x.doc/notes"), _UNKNOWN);
}

TEST(KindOf, AnythingElseIsUnknown) {
    for (const char* name : {"", "a", "doc", "a.tar", "a.docm", "a.do", "a.doc ", "a.", "."}) {
        EXPECT_EQ(KindOf(name), _UNKNOWN) << name;
    }
}

TEST(ViewMakers, KnownKindsHaveAView) {
    EXPECT_NE(ViewMakerOf(_WORD), nullptr);
    EXPECT_NE(ViewMakerOf(_PPT), nullptr);
    EXPECT_EQ(ViewMakerOf(_UNKNOWN), nullptr);
    EXPECT_NE(ViewMakerOf(_EXCEL), nullptr);
}

} // namespace
