// SPDX-License-Identifier: Apache-2.0
#include "engine/modules/Exporting.h"

#include "engine/host/Supervisor.h"
#include "engine/host/Waiting.h"
#include "engine/modules/Believable.h"
#include "engine/protocol/Inherited.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace lectern::engine {
namespace {

// More than the pages of documents take, and less than an engine can write to a file.
constexpr off_t MOST_BYTES = off_t{128} << 20;

bool writeAll(int to, const char* bytes, std::size_t count) {
    while (count > 0) {
        const ssize_t written = write(to, bytes, count);
        if (written < 0 && errno != EINTR) {
            return false;
        }
        bytes += written > 0 ? written : 0;
        count -= written > 0 ? static_cast<std::size_t>(written) : 0;
    }
    return true;
}

// Copies the engine's file. It may be anything, and may change meanwhile.
std::int32_t copyFile(const std::string& path, int to) {
    const FileDescriptor from(open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    if (!from || fstat(from.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return MODULE_FAILED;
    }
    if (status.st_size > MOST_BYTES) {
        return MODULE_TOO_LARGE;
    }
    std::array<char, 65536> part{};
    for (off_t left = status.st_size; left > 0;) {
        const ssize_t count = read(from.get(), part.data(), part.size());
        if (count < 0 && errno == EINTR) {
            continue;
        }
        const auto some = static_cast<std::size_t>(count);
        if (count <= 0 || count > left || !writeAll(to, part.data(), some)) {
            return MODULE_FAILED;
        }
        left -= count;
    }
    return MODULE_OK;
}

} // namespace

std::int32_t exportWith(const Opening& opening, DocumentKind kind, ExportFormat format, int descriptor) {
    DocumentFile file;
    if (const std::int32_t result = findDocumentFile(opening.file.path, file); result != MODULE_OK) {
        return result;
    }
    if (!file.isSameAs(opening.file)) {
        return MODULE_CHANGED;
    }
    // An export takes longer than an open: all pages are laid out and written.
    const TimePoint deadline = Clock::now() + opening.limits.busy;
    const Waiting waiting;
    std::int32_t result = MODULE_OK;
    const std::unique_ptr<Engine> engine =
        Supervisor::instance().take(opening.settings, file, deadline, result);
    if (!engine) {
        return result;
    }
    gint told = MODULE_FAILED;
    result = engine->call(deadline, [&](GError** error) {
        return lectern_ipc_process_call_export_sync(
            engine->process(), file.path.c_str(), opening.password.c_str(), static_cast<gint>(kind),
            static_cast<gint>(format), G_DBUS_CALL_FLAGS_NONE, G_MAXINT, &told, nullptr, error);
    });
    result = result == MODULE_OK ? codeFromEngine(told) : result;
    return result == MODULE_OK ? copyFile(engine->folder() + "/" + EXPORT_FILE, descriptor) : result;
}

} // namespace lectern::engine
