// SPDX-License-Identifier: Apache-2.0
#include "view/OutputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

lectern::FileDescriptor openForWriting(const char* path) {
    if (path == nullptr) {
        return {};
    }
    lectern::FileDescriptor file(open(path, O_WRONLY | O_CREAT | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0666));
    struct stat status {};
    const bool isUsable =
        file && fstat(file.get(), &status) == 0 && S_ISREG(status.st_mode) && ftruncate(file.get(), 0) == 0;
    return isUsable ? std::move(file) : lectern::FileDescriptor();
}
