// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/command/Commands.h"
#include "tests/unit/client/FakeService.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <string>

// Tests of the sub-commands with a fake service on the session bus.
class CommandTest : public testing::Test {
protected:
    CommandTest() {
        std::string pattern = testing::TempDir() + "lectern-command-XXXXXX";
        mFolder = mkdtemp(pattern.data());
        setenv("DBUS_SESSION_BUS_ADDRESS", mService.address().c_str(), 1);
        testing::internal::CaptureStderr();
    }
    ~CommandTest() override {
        testing::internal::GetCapturedStderr();
        unsetenv("DBUS_SESSION_BUS_ADDRESS");
        std::filesystem::remove_all(mFolder);
    }

    // Text on standard error since the last call of this function.
    static std::string complaints() {
        std::string text = testing::internal::GetCapturedStderr();
        testing::internal::CaptureStderr();
        return text;
    }

    FakeService mService;
    std::filesystem::path mFolder;
};
