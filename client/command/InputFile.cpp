// SPDX-License-Identifier: Apache-2.0
#include "client/command/InputFile.h"

#include "base/FileDescriptor.h"
#include "client/lib/Errors.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <utility>

namespace lectern {

namespace {

// Far above any document; it keeps an endless stream from filling the memory.
constexpr size_t MAX_BYTES = size_t{1} << 30;

// Waits for data or the end with all signals unblocked, so that an interruption ends
// the process: nothing has been written yet.
bool waitForInput() {
    pollfd input{STDIN_FILENO, POLLIN, 0};
    sigset_t none;
    sigemptyset(&none);
    return ppoll(&input, 1, nullptr, &none) > 0 || errno == EINTR;
}

Result<std::string> readInput() {
    std::string bytes;
    char buffer[65536];
    while (bytes.size() <= MAX_BYTES) {
        const ssize_t count = waitForInput() ? read(STDIN_FILENO, buffer, sizeof buffer) : -1;
        if (count == 0) {
            return bytes;
        }
        if (count > 0) {
            bytes.append(buffer, static_cast<size_t>(count));
        } else if (errno != EINTR && errno != EAGAIN) {
            return systemError("cannot read the standard input", errno);
        }
    }
    return systemError("cannot read the standard input", EFBIG);
}

Failure writeFile(const std::string& path, const std::string& bytes) {
    const FileDescriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    for (size_t done = 0; file && done < bytes.size();) {
        const ssize_t count = write(file.get(), bytes.data() + done, bytes.size() - done);
        if (count < 0) {
            return systemError("cannot write '" + path + "'", errno);
        }
        done += static_cast<size_t>(count);
    }
    return file ? std::nullopt : Failure(systemError("cannot write '" + path + "'", errno));
}

} // namespace

InputFile::InputFile(std::string path, std::filesystem::path folder)
    : mPath(std::move(path)), mFolder(std::move(folder)) {}

InputFile::InputFile(InputFile&& other) noexcept
    : mPath(std::move(other.mPath)), mFolder(std::exchange(other.mFolder, {})) {}

InputFile::~InputFile() {
    if (!mFolder.empty()) {
        std::error_code ignored;
        std::filesystem::remove_all(mFolder, ignored);
    }
}

Result<InputFile> InputFile::open(const std::string& path, const std::optional<std::string>& type) {
    if (path != STANDARD_INPUT) {
        return InputFile(path);
    }
    const Result<std::string> bytes = readInput();
    if (!bytes) {
        return bytes.error();
    }
    const char* const given = std::getenv("TMPDIR");
    std::string folder =
        std::string(given != nullptr && *given == '/' ? given : "/tmp") + "/lectern-input-XXXXXX";
    if (mkdtemp(folder.data()) == nullptr) {
        return systemError("cannot create a folder for the document", errno);
    }
    InputFile copy(folder + "/standard-input" + (type ? "." + *type : ""), folder);
    if (Failure failure = writeFile(copy.path(), *bytes)) {
        return *failure;
    }
    return copy;
}

} // namespace lectern
