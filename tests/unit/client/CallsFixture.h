// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/lib/Json.h"
#include "tests/unit/client/FakeService.h"
#include <lectern/Bus.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>

// Tests of typed calls with a fake service, which stores the last call.
class CallsTest : public testing::Test {
protected:
    CallsTest() : mBus(std::move(*lectern::Bus::connect(mService.address()))) {}

    lectern::JsonMembers payload() {
        return std::move(*lectern::JsonMembers::parse(mService.calls().back().payload));
    }
    std::string place() { return mService.calls().back().place; }

    FakeService mService;
    lectern::Bus mBus;
};
