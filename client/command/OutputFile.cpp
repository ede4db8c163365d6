// SPDX-License-Identifier: Apache-2.0
#include "client/command/OutputFile.h"

#include "client/lib/Errors.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

namespace lectern {

namespace {

Error cannotWrite(const std::string& path, int errorNumber) {
    return systemError("cannot write '" + path + "'", errorNumber);
}

Error terminalRefused() {
    return {Error::Kind::Argument,
            "a terminal cannot show the picture; redirect the standard output, or name a file after -o",
            0,
            {}};
}

std::string folderOf(const std::string& path) {
    const std::string folder = std::filesystem::path(path).parent_path();
    return folder.empty() ? "." : folder;
}

bool isOtherThanFile(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
}

Failure writeThrough(const std::string& path, std::FILE* stream,
                     const std::function<bool(std::FILE*)>& write) {
    if (stream == nullptr) {
        return cannotWrite(path, errno);
    }
    errno = 0;
    const bool written = write(stream);
    int failure = written ? 0 : errno;
    if (std::fclose(stream) != 0 && failure == 0) {
        failure = errno;
    }
    if (written && failure == 0) {
        return std::nullopt;
    }
    return cannotWrite(path, failure == 0 ? EIO : failure);
}

} // namespace

Failure checkOutput(const std::string& path) {
    if (path == STANDARD_OUTPUT) {
        return isatty(STDOUT_FILENO) == 0 ? std::nullopt : Failure(terminalRefused());
    }
    struct stat status {};
    if (stat(path.c_str(), &status) == 0) {
        if (S_ISDIR(status.st_mode)) {
            return cannotWrite(path, EISDIR);
        }
        if (faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0) {
            return cannotWrite(path, errno);
        }
        if (!S_ISREG(status.st_mode)) {
            return std::nullopt;
        }
    } else if (errno != ENOENT || path.empty()) {
        return cannotWrite(path, errno);
    }
    const std::string folder = folderOf(path);
    if (faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) != 0) {
        return cannotWrite(path, errno);
    }
    return std::nullopt;
}

Failure writeOutput(const std::string& path, const std::function<bool(std::FILE*)>& write) {
    if (path == STANDARD_OUTPUT) {
        return write(stdout) ? std::nullopt
                             : Failure(systemError("cannot write to the standard output", errno));
    }
    if (isOtherThanFile(path)) {
        return writeThrough(path, std::fopen(path.c_str(), "wbe"), write);
    }
    const std::string part = path + "." + std::to_string(getpid()) + ".part";
    Failure failure = writeThrough(path, std::fopen(part.c_str(), "wbxe"), write);
    if (!failure && std::rename(part.c_str(), path.c_str()) != 0) {
        failure = cannotWrite(path, errno);
    }
    if (failure) {
        unlink(part.c_str());
    }
    return failure;
}

} // namespace lectern
