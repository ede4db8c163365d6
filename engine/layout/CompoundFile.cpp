// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/CompoundFile.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace lectern::engine {

namespace {

// The format's layout: offsets and sizes in bytes, numbers little-endian.
constexpr std::string_view MAGIC = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
constexpr size_t HEADER_SIZE = 512;
constexpr size_t SECTOR_SHIFT_AT = 30;
constexpr size_t FIRST_DIRECTORY_SECTOR_AT = 48;
constexpr size_t TABLE_SECTORS_AT = 76; // in the header: the sectors with the table of successors
constexpr size_t ENTRY_SIZE = 128;
constexpr size_t ENTRY_TYPE_AT = 66;
constexpr size_t ENTRY_START_AT = 116;
constexpr size_t ENTRY_LENGTH_AT = 120;
constexpr char STREAM = 2;
constexpr uint32_t END_OF_CHAIN = 0xFFFFFFFE;

// REQUIRES: at + 4 <= file.size().
uint32_t numberAt(std::string_view file, size_t at) {
    uint32_t number = 0;
    for (size_t i = 4; i-- > 0;) {
        number = number << 8 | static_cast<unsigned char>(file[at + i]);
    }
    return number;
}

void setNumberAt(std::string& file, size_t at, uint32_t number) {
    for (size_t i = 0; i < 4; ++i) {
        file[at + i] = static_cast<char>(number >> 8 * i & 0xFF);
    }
}

class Sectors {
public:
    Sectors(std::string_view file, size_t size) : mFile(file), mSize(size) {}

    size_t count() const { return mFile.size() / mSize; }
    size_t size() const { return mSize; }
    // The header takes the place of one sector.
    size_t place(uint32_t sector) const { return (size_t{sector} + 1) * mSize; }
    bool has(uint32_t sector) const { return place(sector) + mSize <= mFile.size(); }
    // The sector that follows in a chain; END_OF_CHAIN where the file does not say.
    uint32_t after(uint32_t sector) const {
        const size_t perSector = mSize / 4;
        const size_t listed = TABLE_SECTORS_AT + sector / perSector * 4;
        if (listed + 4 > HEADER_SIZE) {
            return END_OF_CHAIN;
        }
        const uint32_t table = numberAt(mFile, listed);
        return has(table) ? numberAt(mFile, place(table) + sector % perSector * 4) : END_OF_CHAIN;
    }

private:
    std::string_view mFile;
    size_t mSize;
};

bool emptyImpossibleStreamsIn(std::string& file, size_t directorySector, size_t sectorSize) {
    bool changed = false;
    for (size_t entry = directorySector; entry < directorySector + sectorSize; entry += ENTRY_SIZE) {
        if (file[entry + ENTRY_TYPE_AT] == STREAM && numberAt(file, entry + ENTRY_LENGTH_AT) > file.size()) {
            setNumberAt(file, entry + ENTRY_START_AT, END_OF_CHAIN);
            setNumberAt(file, entry + ENTRY_LENGTH_AT, 0);
            changed = true;
        }
    }
    return changed;
}

} // namespace

bool emptyImpossibleStreams(std::string& file) {
    if (file.size() < HEADER_SIZE || !file.starts_with(MAGIC)) {
        return false;
    }
    const size_t shift = static_cast<unsigned char>(file[SECTOR_SHIFT_AT]);
    if (shift != 9 && shift != 12) { // the two sizes that the format has
        return false;
    }
    const Sectors sectors(file, size_t{1} << shift);
    bool changed = false;
    uint32_t sector = numberAt(file, FIRST_DIRECTORY_SECTOR_AT);
    // A damaged chain may lead in a circle.
    for (size_t i = 0; i < sectors.count() && sectors.has(sector); ++i) {
        changed |= emptyImpossibleStreamsIn(file, sectors.place(sector), sectors.size());
        sector = sectors.after(sector);
    }
    return changed;
}

} // namespace lectern::engine
