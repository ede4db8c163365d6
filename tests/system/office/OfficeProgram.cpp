// SPDX-License-Identifier: Apache-2.0
#include "tests/system/office/OfficeProgram.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <memory>

namespace lectern::engine::test {

void runWithOffice(std::string folder,
                   const std::function<int(Office& office, const std::string& folder)>& work) {
    if (mkdtemp(folder.data()) == nullptr) {
        _exit(1);
    }
    setenv("TMPDIR", folder.c_str(), 1); // the suite leaves files in it
    const std::unique_ptr<Office> office = Office::start(folder + "/profile");
    const auto removeFolder = [&folder] {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    };
    if (!office) {
        removeFolder();
        _exit(1);
    }
    office->runAndExit([&] {
        const int result = work(*office, folder);
        removeFolder();
        return result;
    });
}

} // namespace lectern::engine::test
