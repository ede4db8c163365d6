// SPDX-License-Identifier: Apache-2.0
#include "client/lib/ContentKind.h"

#include "base/GLibHolder.h"

#include <gio/gio.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string_view>

namespace lectern {

namespace {

// How much of a file is looked at, at each place.
constexpr std::streamsize BEGINNING = 65'536;

struct KnownType {
    std::string_view type; // or its beginning
    DocumentKind kind;
};

// Types begin alike for documents, templates and those with macros.
constexpr KnownType TYPES[] = {
    {"application/msword", DocumentKind::WordProcessing},
    {"application/vnd.ms-word", DocumentKind::WordProcessing},
    {"application/vnd.openxmlformats-officedocument.wordprocessingml", DocumentKind::WordProcessing},
    {"application/vnd.oasis.opendocument.text", DocumentKind::WordProcessing},
    {"application/rtf", DocumentKind::WordProcessing},
    {"text/rtf", DocumentKind::WordProcessing},
    {"application/vnd.ms-excel", DocumentKind::Spreadsheet},
    {"application/vnd.openxmlformats-officedocument.spreadsheetml", DocumentKind::Spreadsheet},
    {"application/vnd.oasis.opendocument.spreadsheet", DocumentKind::Spreadsheet},
    {"text/csv", DocumentKind::Spreadsheet},
    {"text/tab-separated-values", DocumentKind::Spreadsheet},
    {"application/vnd.ms-powerpoint", DocumentKind::Presentation},
    {"application/vnd.openxmlformats-officedocument.presentationml", DocumentKind::Presentation},
    {"application/vnd.oasis.opendocument.presentation", DocumentKind::Presentation},
};

// Streams of compound files (in UTF-16) and parts of packages, which only documents of
// one kind have.
constexpr KnownType NAMES[] = {
    {std::string_view("W\0o\0r\0d\0D\0o\0c\0u\0m\0e\0n\0t\0", 24), DocumentKind::WordProcessing},
    {std::string_view("W\0o\0r\0k\0b\0o\0o\0k\0", 16), DocumentKind::Spreadsheet},
    {std::string_view("B\0o\0o\0k\0\0\0", 10), DocumentKind::Spreadsheet},
    {std::string_view("P\0o\0w\0e\0r\0P\0o\0i\0n\0t\0", 20), DocumentKind::Presentation},
    {"word/document", DocumentKind::WordProcessing},
    {"xl/workbook", DocumentKind::Spreadsheet},
    {"ppt/presentation", DocumentKind::Presentation},
};

std::string read(std::ifstream& file, std::streamoff from) {
    std::string bytes(BEGINNING, '\0');
    file.clear();
    file.seekg(from);
    file.read(bytes.data(), BEGINNING);
    bytes.resize(static_cast<size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return bytes;
}

std::streamoff number(const std::string& bytes, size_t at, int size) {
    std::streamoff value = 0;
    for (int i = size - 1; i >= 0; --i) {
        value = value << 8 | static_cast<unsigned char>(bytes[at + static_cast<size_t>(i)]);
    }
    return value;
}

// Where a compound file has its directory: its header has the number of the directory's
// first sector, and the size of sectors as a power of 2.
std::streamoff compoundDirectory(const std::string& beginning) {
    constexpr size_t SECTOR_SIZE = 30;
    constexpr size_t DIRECTORY_SECTOR = 48;
    constexpr size_t HEADER = 512;
    if (beginning.size() < HEADER || !beginning.starts_with("\xD0\xCF\x11\xE0")) {
        return -1;
    }
    const std::streamoff size = std::min<std::streamoff>(number(beginning, SECTOR_SIZE, 2), 12);
    return (number(beginning, DIRECTORY_SECTOR, 4) + 1) << size;
}

// Where a package has its directory: a record at its end tells.
std::streamoff packageDirectory(std::ifstream& file, const std::string& beginning) {
    constexpr size_t START_OF_DIRECTORY = 16;
    constexpr size_t END_RECORD = 22;
    if (!beginning.starts_with("PK\3\4")) {
        return -1;
    }
    file.clear();
    file.seekg(0, std::ios::end);
    const std::string end = read(file, std::max<std::streamoff>(file.tellg() - BEGINNING, 0));
    const size_t record = end.rfind("PK\5\6");
    return record == std::string::npos || record + END_RECORD > end.size()
               ? -1
               : number(end, record + START_OF_DIRECTORY, 4);
}

// The kind that the first telling name in the directory of a file tells. Later ones may
// belong to documents inside it.
DocumentKind kindOfDirectory(std::ifstream& file, const std::string& beginning) {
    std::streamoff directory = compoundDirectory(beginning);
    if (directory < 0) {
        directory = packageDirectory(file, beginning);
    }
    if (directory < 0) {
        return DocumentKind::Unknown;
    }
    const std::string names = read(file, directory);
    DocumentKind kind = DocumentKind::Unknown;
    size_t first = std::string::npos;
    for (const KnownType& known : NAMES) {
        if (const size_t at = names.find(known.type); at < first) {
            first = at;
            kind = known.kind;
        }
    }
    return kind;
}

DocumentKind guess(const char* name, const std::string& bytes) {
    const GLibHolder<char> type(
        g_content_type_guess(name, reinterpret_cast<const guchar*>(bytes.data()), bytes.size(), nullptr));
    return kindOfType(type.get());
}

// Text without marks of its own: a name such as "a.csv" tells more about it.
bool isPlainText(const std::string& bytes) {
    const GLibHolder<char> type(
        g_content_type_guess(nullptr, reinterpret_cast<const guchar*>(bytes.data()), bytes.size(), nullptr));
    return g_content_type_is_a(type.get(), "text/plain") != FALSE;
}

} // namespace

DocumentKind kindOfType(const char* contentType) {
    const std::string_view type = contentType;
    const auto* found = std::find_if(std::begin(TYPES), std::end(TYPES),
                                     [&](const KnownType& known) { return type.starts_with(known.type); });
    return found == std::end(TYPES) ? DocumentKind::Unknown : found->kind;
}

DocumentKind contentKind(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string beginning = file ? read(file, 0) : "";
    if (beginning.empty()) {
        return DocumentKind::Unknown;
    }
    for (const DocumentKind kind :
         {guess(nullptr, beginning), kindOfDirectory(file, beginning), guess(path.c_str(), {})}) {
        if (kind != DocumentKind::Unknown) {
            return kind;
        }
    }
    return isPlainText(beginning) ? DocumentKind::WordProcessing : DocumentKind::Unknown;
}

} // namespace lectern
