// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Errors.h"

#include "modules/ModuleResults.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <set>

namespace {

using namespace lectern;
using testing::HasSubstr;
using testing::Not;

TEST(ModuleResultText, IsAnotherOneForEachCode) {
    std::set<std::string> texts;
    for (int code = MODULE_OK; code <= MODULE_CANCELLED; ++code) {
        EXPECT_TRUE(texts.insert(moduleResultText(code)).second) << code;
    }
    EXPECT_EQ(texts.count(moduleResultText(MODULE_CANCELLED + 1)), 0U) << "a code has no text of its own";
}

TEST(ModuleResultText, SaysWhatToDo) {
    EXPECT_THAT(moduleResultText(MODULE_NEEDS_PASSWORD), HasSubstr("--password"));
    EXPECT_THAT(moduleResultText(MODULE_WRONG_PASSWORD), HasSubstr("--password"));
    EXPECT_THAT(moduleResultText(MODULE_NOT_FOUND), HasSubstr("check the path"));
    EXPECT_THAT(moduleResultText(MODULE_NOT_READABLE), HasSubstr("permissions"));
    EXPECT_THAT(moduleResultText(MODULE_NO_ENGINE), HasSubstr("LibreOffice"));
}

TEST(DocumentError, NamesTheFileAndTheCode) {
    const Error error = documentError("x.docx", DocumentKind::WordProcessing, MODULE_NEEDS_PASSWORD);
    EXPECT_EQ(error.kind, Error::Kind::Document);
    EXPECT_EQ(error.code, 7);
    EXPECT_EQ(error.text, "cannot open 'x.docx': it needs a password; give one with --password (code 7)");
}

TEST(DocumentError, DoesNotAskForThePasswordOfAPresentation) {
    for (const int code : {MODULE_NEEDS_PASSWORD, MODULE_WRONG_PASSWORD}) {
        const Error error = documentError("x.pptx", DocumentKind::Presentation, code);
        EXPECT_EQ(error.code, code);
        EXPECT_THAT(error.text, HasSubstr("protected by a password, and those cannot be opened"));
        EXPECT_THAT(error.text, Not(HasSubstr("--password")));
    }
    EXPECT_THAT(documentError("x.pptx", DocumentKind::Presentation, MODULE_DAMAGED).text,
                HasSubstr("damaged"));
}

TEST(RefusalError, IsAPlainSentenceForEachOfTheServicesCodes) {
    const Error kind = refusalError("errDocType", "doctype is unkown");
    EXPECT_EQ(kind.kind, Error::Kind::Refused);
    EXPECT_EQ(kind.name, "errDocType");
    EXPECT_THAT(kind.text, HasSubstr("must end in .doc"));
    EXPECT_THAT(refusalError("errDoesNotExist", "x").text, HasSubstr("open it again"));
    EXPECT_THAT(refusalError("errWrongType", "Not an Excel document").text,
                HasSubstr("Not an Excel document"));
    EXPECT_THAT(refusalError("errParamFailed", "failed to get docid").text, HasSubstr("failed to get docid"));
    EXPECT_THAT(refusalError("errNew", "some day").text, HasSubstr("some day"));
}

TEST(SystemError, TellsTheAttemptAndTheReason) {
    const Error error = systemError("cannot write 'a'", ENOENT);
    EXPECT_EQ(error.kind, Error::Kind::System);
    EXPECT_EQ(error.code, ENOENT);
    EXPECT_EQ(error.text, "cannot write 'a': No such file or directory");
}

} // namespace
