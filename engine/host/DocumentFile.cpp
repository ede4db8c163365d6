// SPDX-License-Identifier: Apache-2.0
#include "engine/host/DocumentFile.h"

#include "modules/ModuleResults.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

namespace lectern::engine {
namespace {

std::int32_t resultOfOpenError(int error) {
    switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
        return MODULE_NOT_FOUND;
    case ENXIO:  // a socket, or a device that is not there
    case ENODEV: // a device without a driver
        return MODULE_NOT_A_FILE;
    default:
        return MODULE_NOT_READABLE;
    }
}

} // namespace

std::string absolutePath(const std::string& path) {
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    if (error) {
        return path;
    }
    // The suite resolves "name/.." textually, even if the name is a link, and
    // it crashes when it gets a password for a path that differs from its own
    // for the file. So links in the folder's path are resolved here. A link to
    // the file itself keeps its name, because the name's extension matters.
    const std::filesystem::path folder = std::filesystem::canonical(absolute.parent_path(), error);
    return error ? absolute.native() : (folder / absolute.filename()).native();
}

std::int32_t findDocumentFile(const std::string& path, DocumentFile& file) {
    FileDescriptor opened(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!opened) {
        return resultOfOpenError(errno);
    }
    struct stat status {};
    if (fstat(opened.get(), &status) != 0) {
        return MODULE_NOT_READABLE;
    }
    if (!S_ISREG(status.st_mode)) {
        return MODULE_NOT_A_FILE;
    }
    char first = 0;
    if (pread(opened.get(), &first, 1, 0) < 0) {
        return MODULE_NOT_READABLE;
    }
    file = {absolutePath(path), status.st_size, std::move(opened),
            status.st_dev,      status.st_ino,  status.st_mtim};
    return MODULE_OK;
}

} // namespace lectern::engine
