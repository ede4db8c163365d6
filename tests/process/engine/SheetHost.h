// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/ModuleResults.h"
#include "modules/STGFunc.h"

#include <cstdint>
#include <string>
#include <utility>

namespace lectern::test {

// The spreadsheet module, loaded from the build tree as the service loads it.
const STGFunc& sheetModule();

// A workbook that is closed on destruction.
class WorkbookHandle {
public:
    WorkbookHandle() = default;
    ~WorkbookHandle() { close(); }
    WorkbookHandle(WorkbookHandle&& other) noexcept : mHandle(std::exchange(other.mHandle, nullptr)) {}
    WorkbookHandle& operator=(WorkbookHandle&&) = delete;

    std::int32_t open(const std::string& path, const std::string& temporaryFolder,
                      const std::string& password = "");
    std::int32_t close();
    void* get() const { return mHandle; }

private:
    void* mHandle = nullptr;
};

} // namespace lectern::test
