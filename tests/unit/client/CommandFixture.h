// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/command/Commands.h"
#include "tests/unit/client/FakeService.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <string>

// The sub-commands against a fake service on the session's bus.
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

    // What has gone to standard error since it was last asked for.
    static std::string complaints() {
        std::string text = testing::internal::GetCapturedStderr();
        testing::internal::CaptureStderr();
        return text;
    }

    FakeService mService;
    std::filesystem::path mFolder;
};
