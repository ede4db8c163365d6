// SPDX-License-Identifier: Apache-2.0
#include "hub/hubservice.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>

namespace {

std::string printed(const HubError* error) {
    std::array<char, 256> buffer{};
    FILE* stream = fmemopen(buffer.data(), buffer.size(), "w");
    HubErrorPrint(error, stream);
    std::fclose(stream);
    return buffer.data();
}

TEST(HubErrors, InitMakesAnEmptyErrorOfAnything) {
    HubError error;
    std::memset(&error, 0xA5, sizeof error);
    EXPECT_TRUE(HubErrorInit(&error));
    EXPECT_EQ(error.code, HUB_ERROR_NONE);
    EXPECT_EQ(error.message, nullptr);
}

TEST(HubErrors, NullIsSurvived) {
    EXPECT_FALSE(HubErrorInit(nullptr));
    HubErrorFree(nullptr);
    EXPECT_EQ(printed(nullptr), "");
}

TEST(HubErrors, EmptyErrorPrintsNothing) {
    HubError error;
    HubErrorInit(&error);
    EXPECT_EQ(printed(&error), "");
    HubErrorFree(&error);
}

TEST(HubErrors, FailurePrintsItsMessageAndCodeOnOneLine) {
    HubError error;
    HubErrorInit(&error);
    ASSERT_FALSE(HubRegister("nodots", nullptr, &error));
    EXPECT_EQ(printed(&error), "no place for the handle (error 1)\n");
    HubErrorFree(&error);
}

TEST(HubErrors, FreedErrorIsReadyAgain) {
    HubError error;
    HubErrorInit(&error);
    HubRegister("nodots", nullptr, &error);
    HubErrorFree(&error);
    EXPECT_EQ(error.code, HUB_ERROR_NONE);
    EXPECT_EQ(error.message, nullptr);
    HubErrorFree(&error);
}

TEST(HubErrors, LaterFailureReplacesAnEarlierOne) {
    HubError error;
    HubErrorInit(&error);
    HubHandle* handle = nullptr;
    HubRegister("nodots", nullptr, &error);
    HubRegister("nodots", &handle, &error);
    EXPECT_STREQ(error.message, "not a service name: nodots");
    HubErrorFree(&error);
}

} // namespace
