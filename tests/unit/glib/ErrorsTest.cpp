// SPDX-License-Identifier: Apache-2.0
#include "client/glib/Error.h"
#include "modules/ModuleResults.h"

#include <gtest/gtest.h>
#include <lectern-glib/lectern-glib.h>

#include <string>

namespace {

using namespace lectern;

// Converts an error with these members.
GLibHolder<GError> converted(Error::Kind kind, int code = 0, const std::string& name = {}) {
    return toGError({kind, "a reason", code, name});
}

TEST(Errors, TheTextIsTheMessage) {
    EXPECT_STREQ(converted(Error::Kind::Bus)->message, "a reason");
}

TEST(Errors, CallsFailInTheDomainOfTheService) {
    const auto expect = [](Error::Kind kind, LecternServiceError code) {
        EXPECT_TRUE(g_error_matches(converted(kind).get(), LECTERN_SERVICE_ERROR, code)) << code;
    };
    expect(Error::Kind::Argument, LECTERN_SERVICE_ERROR_ARGUMENT);
    expect(Error::Kind::System, LECTERN_SERVICE_ERROR_SYSTEM);
    expect(Error::Kind::Bus, LECTERN_SERVICE_ERROR_BUS);
    expect(Error::Kind::TimedOut, LECTERN_SERVICE_ERROR_TIMED_OUT);
    expect(Error::Kind::Gone, LECTERN_SERVICE_ERROR_GONE);
}

TEST(Errors, ARefusalHasTheCodeOfItsName) {
    const auto expect = [](const char* name, LecternServiceError code) {
        const auto error = converted(Error::Kind::Refused, 0, name);
        EXPECT_TRUE(g_error_matches(error.get(), LECTERN_SERVICE_ERROR, code)) << name;
    };
    expect("errDoesNotExist", LECTERN_SERVICE_ERROR_GONE);
    expect("errNotOpen", LECTERN_SERVICE_ERROR_NOT_OPEN);
    expect("errWrongType", LECTERN_SERVICE_ERROR_WRONG_KIND);
    expect("errOutOfRange", LECTERN_SERVICE_ERROR_OUT_OF_RANGE);
    expect("errNothingThere", LECTERN_SERVICE_ERROR_NOTHING_THERE);
    expect("errNotSupported", LECTERN_SERVICE_ERROR_NOT_SUPPORTED);
    expect("errNotWritable", LECTERN_SERVICE_ERROR_NOT_WRITABLE);
    expect("errFailed", LECTERN_SERVICE_ERROR_FAILED);
    expect("errOfTheFuture", LECTERN_SERVICE_ERROR_REFUSED);
}

TEST(Errors, DocumentsFailInADomainOfTheirOwn) {
    const auto expect = [](int moduleCode, LecternDocumentError code) {
        const auto error = converted(Error::Kind::Document, moduleCode);
        EXPECT_TRUE(g_error_matches(error.get(), LECTERN_DOCUMENT_ERROR, code)) << moduleCode;
    };
    expect(MODULE_FAILED, LECTERN_DOCUMENT_ERROR_FAILED);
    expect(MODULE_NOT_FOUND, LECTERN_DOCUMENT_ERROR_NOT_FOUND);
    expect(MODULE_NOT_A_FILE, LECTERN_DOCUMENT_ERROR_NOT_A_FILE);
    expect(MODULE_NOT_READABLE, LECTERN_DOCUMENT_ERROR_NOT_READABLE);
    expect(MODULE_DAMAGED, LECTERN_DOCUMENT_ERROR_DAMAGED);
    expect(MODULE_WRONG_KIND, LECTERN_DOCUMENT_ERROR_WRONG_KIND);
    expect(MODULE_NEEDS_PASSWORD, LECTERN_DOCUMENT_ERROR_NEEDS_PASSWORD);
    expect(MODULE_WRONG_PASSWORD, LECTERN_DOCUMENT_ERROR_WRONG_PASSWORD);
    expect(MODULE_TIMED_OUT, LECTERN_DOCUMENT_ERROR_TIMED_OUT);
    expect(MODULE_ENGINE_LOST, LECTERN_DOCUMENT_ERROR_ENGINE_LOST);
    expect(MODULE_NO_ENGINE, LECTERN_DOCUMENT_ERROR_NO_ENGINE);
    expect(MODULE_NOT_SUPPORTED, LECTERN_DOCUMENT_ERROR_NOT_SUPPORTED);
    expect(MODULE_TOO_LARGE, LECTERN_DOCUMENT_ERROR_TOO_LARGE);
    expect(MODULE_TOO_COMPLEX, LECTERN_DOCUMENT_ERROR_TOO_COMPLEX);
    expect(MODULE_CHANGED, LECTERN_DOCUMENT_ERROR_CHANGED);
    expect(1'000, LECTERN_DOCUMENT_ERROR_FAILED); // of a module of others
}

TEST(Errors, CancelledCallsAndOpensAreErrorsOfGio) {
    const auto isCancelled = [](const GLibHolder<GError>& error) {
        return g_error_matches(error.get(), G_IO_ERROR, G_IO_ERROR_CANCELLED) != FALSE;
    };
    EXPECT_TRUE(isCancelled(converted(Error::Kind::Cancelled)));
    EXPECT_TRUE(isCancelled(converted(Error::Kind::Document, MODULE_CANCELLED)));
}

} // namespace
