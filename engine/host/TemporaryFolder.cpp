// SPDX-License-Identifier: Apache-2.0
#include "engine/host/TemporaryFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

namespace lectern::engine {
namespace {

namespace fs = std::filesystem;

constexpr const char* PREFIX = "lectern-engine-";

// Opens and locks a folder of this user. Fails when another process holds the
// lock, or when the path meanwhile names another folder.
FileDescriptor lockFolder(const std::string& path) {
    FileDescriptor folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat opened {};
    struct stat named {};
    if (!folder || flock(folder.get(), LOCK_EX | LOCK_NB) != 0 || fstat(folder.get(), &opened) != 0 ||
        lstat(path.c_str(), &named) != 0 || opened.st_uid != geteuid() || opened.st_dev != named.st_dev ||
        opened.st_ino != named.st_ino) {
        return {};
    }
    return folder;
}

void removeLeftBehind(const std::string& parent) {
    std::error_code error;
    for (fs::directory_iterator entry(parent, error), end; !error && entry != end; entry.increment(error)) {
        const fs::path& path = entry->path();
        if (path.filename().native().rfind(PREFIX, 0) == 0 && lockFolder(path)) {
            // If one cannot be removed, go on with the others.
            std::error_code ignored;
            fs::remove_all(path, ignored);
        }
    }
}

} // namespace

std::unique_ptr<TemporaryFolder> TemporaryFolder::make(const std::string& parent) {
    removeLeftBehind(parent);
    // Another service may remove a new folder that is not locked yet, taking it
    // for an abandoned one; then create another.
    for (int attempt = 0; attempt < 10; attempt++) {
        std::string path = parent + "/" + PREFIX + "XXXXXX";
        if (mkdtemp(path.data()) == nullptr) {
            return nullptr;
        }
        if (FileDescriptor lock = lockFolder(path)) {
            return std::unique_ptr<TemporaryFolder>(new TemporaryFolder(std::move(path), std::move(lock)));
        }
    }
    return nullptr;
}

TemporaryFolder::TemporaryFolder(std::string path, FileDescriptor lock)
    : mPath(std::move(path)), mLock(std::move(lock)) {}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(mPath, ignored);
}

} // namespace lectern::engine
