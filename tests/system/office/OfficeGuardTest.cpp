// SPDX-License-Identifier: Apache-2.0
// The exceptions of the suite become result codes.
#include "engine/office/OfficeGuard.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace lectern::engine::test {

TEST(OfficeGuard, MissingMemoryIsTooLarge) {
    EXPECT_EQ(guardedInOffice([]() -> int32_t { throw std::bad_alloc(); }), MODULE_TOO_LARGE);
}

TEST(OfficeGuard, OtherExceptionsAreFailures) {
    EXPECT_EQ(guardedInOffice([]() -> int32_t { throw css::uno::Exception("no", {}); }), MODULE_FAILED);
    EXPECT_EQ(guardedInOffice([]() -> int32_t { throw std::runtime_error("no"); }), MODULE_FAILED);
    EXPECT_EQ(guardedInOffice([]() -> int32_t { throw 1; }), MODULE_FAILED);
}

TEST(OfficeGuard, WithoutAnExceptionTheResultIsThatOfTheWork) {
    EXPECT_EQ(guardedInOffice([]() -> int32_t { return MODULE_NOTHING_THERE; }), MODULE_NOTHING_THERE);
}

} // namespace lectern::engine::test
