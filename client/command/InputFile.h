// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Result.h>

#include <filesystem>
#include <optional>
#include <string>

namespace lectern {

// The operand that stands for standard input.
inline constexpr const char* STANDARD_INPUT = "-";

// The document that a command opens. Standard input is copied to a file in a new
// folder, which is removed with this object, because the service opens files only.
// Movable.
class InputFile {
public:
    // `type` is the extension of a document on standard input, if it gets one. Reads it to its end; a
    // blocked signal that would end the process ends it meanwhile. Errors: system.
    static Result<InputFile> open(const std::string& path, const std::optional<std::string>& type);

    InputFile(InputFile&& other) noexcept;
    InputFile& operator=(InputFile&&) = delete;
    ~InputFile();

    const std::string& path() const { return mPath; }

private:
    explicit InputFile(std::string path, std::filesystem::path folder = {});

    std::string mPath;
    std::filesystem::path mFolder; // of the copy; empty without one
};

} // namespace lectern
