// SPDX-License-Identifier: Apache-2.0
#include "tests/system/support/EngineRows.h"

#include "tests/system/support/RowHash.h"
#include "tests/system/support/Subprocess.h"

#include <sstream>
#include <stdexcept>

EngineRows::EngineRows(const std::string& path, int width, int dpi) : mWidth(width) {
    const TemporaryFolder folder;
    Subprocess program({ENGINE_ROWS_PROGRAM, path, std::to_string(width), std::to_string(dpi)}, {},
                       folder.path() + "/rows");
    if (program.wait(std::chrono::seconds(120)) != std::optional<int>(0)) {
        throw std::runtime_error("the engine cannot paint " + path);
    }
    std::istringstream lines(program.output());
    for (uint64_t hash = 0; lines >> std::hex >> hash;) {
        mRows.push_back(hash);
    }
    const std::vector<uint32_t> white(static_cast<size_t>(width), 0xFFFFFFFFU);
    mWhite = rowHash(white.data(), width);
}

bool EngineRows::matches(int row, const uint32_t* pixels) const {
    const uint64_t expected = row >= 0 && row < count() ? mRows[static_cast<size_t>(row)] : mWhite;
    return rowHash(pixels, mWidth) == expected;
}
