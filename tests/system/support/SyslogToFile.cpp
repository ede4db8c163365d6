// SPDX-License-Identifier: Apache-2.0
// Loaded before the C library in tests: writes the lines that a program logs to
// the file that LECTERN_TEST_SYSLOG names, as "<priority> text".
#include <fcntl.h>
#include <unistd.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

namespace {

void log(int priority, const char* format, va_list arguments) {
    const char* path = getenv("LECTERN_TEST_SYSLOG");
    if (path == nullptr) {
        return;
    }
    char line[1024];
    int length = std::snprintf(line, sizeof line, "<%d> ", priority);
    length += std::vsnprintf(line + length, sizeof line - static_cast<size_t>(length) - 1, format, arguments);
    if (length > static_cast<int>(sizeof line) - 2) {
        length = static_cast<int>(sizeof line) - 2;
    }
    line[length++] = '\n';
    const int file = open(path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (file >= 0) {
        if (write(file, line, static_cast<size_t>(length)) < 0) {
            // A failure is not reported here; the test misses the line.
        }
        close(file);
    }
}

} // namespace

#define EXPORT extern "C" __attribute__((visibility("default")))

EXPORT void syslog(int priority, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    log(priority, format, arguments);
    va_end(arguments);
}

// The function called instead in fortified builds.
EXPORT void __syslog_chk(int priority, int /*flag*/, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    log(priority, format, arguments);
    va_end(arguments);
}
