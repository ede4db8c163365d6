// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/lib/Calls.h"
#include "tests/unit/client/FakeService.h"
#include <lectern/Bus.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>

// Tests of typed calls with a fake service, which stores the last call.
class CallsTest : public testing::Test {
protected:
    CallsTest() : mBus(std::move(*lectern::Bus::connect(mService.address()))) {}

    // Makes a call for the document with this number.
    template<typename Value>
    lectern::Answer<Value> ask(const lectern::Call<Value>& call, int docid = 1) {
        return lectern::ask(mBus, docid, call);
    }
    lectern::JsonMembers payload() {
        return std::move(*lectern::JsonMembers::parse(mService.calls().back().payload));
    }
    std::string place() { return mService.calls().back().place; }

    FakeService mService;
    lectern::Bus mBus;
};
