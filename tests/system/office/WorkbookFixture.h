// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/OfficeGuard.h"
#include "engine/office/sheet/Workbook.h"
#include "tests/system/office/OfficeFixture.h"
#include "tests/system/support/Python.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace lectern::engine::test {

// Tests of what lies below a SheetDocument, with a workbook of samples/make_xlsx.py.
class WorkbookTest : public OfficeTest {
protected:
    // `kind` and `more` are the script's arguments before and after the file's path.
    WorkbookTest(const std::string& kind, int32_t dpi, const std::vector<std::string>& more = {}) {
        const std::string path = testFolder() / (kind + ".xlsx");
        std::vector<std::string> command{SAMPLES_FOLDER "/make_xlsx.py", kind, path};
        command.insert(command.end(), more.begin(), more.end());
        python(command);
        guarded([&] {
            LoadedModel loaded;
            EXPECT_EQ(loadModel(office().d(), path, "", testFolder(), loaded), MODULE_OK);
            mBook.emplace(std::move(loaded));
            mBook->setDpi(dpi);
        });
    }
    ~WorkbookTest() override {
        guarded([&] { mBook.reset(); });
    }

    // Does work with the suite, which must not fail.
    template<class Work>
    static void guarded(Work work) {
        EXPECT_EQ(guardedInOffice([&]() -> int32_t {
                      work();
                      return MODULE_OK;
                  }),
                  MODULE_OK);
    }

    std::optional<Workbook> mBook;
};

} // namespace lectern::engine::test
