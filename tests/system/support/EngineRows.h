// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Every row of a word-processing document as the real engine paints it at one
// width and dpi, read through the module without the service. The service must
// show the same rows.
class EngineRows {
public:
    EngineRows(const std::string& path, int width, int dpi);

    int count() const { return static_cast<int>(mRows.size()); }
    // Whether the pixels are those of this row; rows after the text are white.
    bool matches(int row, const uint32_t* pixels) const;

private:
    int mWidth;
    uint64_t mWhite;
    std::vector<uint64_t> mRows;
};
