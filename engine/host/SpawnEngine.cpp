// SPDX-License-Identifier: Apache-2.0
#include "engine/host/SpawnEngine.h"

#include "base/Spawn.h"
#include "engine/protocol/Inherited.h"

#include <unistd.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace lectern::engine {
namespace {

// The engine's environment. With it the suite finds no display, no bus and no
// files of the user, and its output does not depend on the service's user.
std::vector<std::string> environmentIn(const std::string& folder) {
    std::vector<std::string> environment = {
        "PATH=/usr/bin:/bin",
        "LANG=C.UTF-8",
        "LC_ALL=C.UTF-8",
        "HOME=" + folder,
        "TMPDIR=" + folder,
        "XDG_CACHE_HOME=" + folder,
        "XDG_CONFIG_HOME=" + folder,
        "SAL_USE_VCLPLUGIN=svp",
        "SAL_DISABLE_OPENCL=1",
        "OOO_DISABLE_RECOVERY=1",
        // Media plug-ins crash on hostile files, and nothing is played.
        "GST_PLUGIN_SYSTEM_PATH_1_0=/nonexistent",
        "GST_REGISTRY=" + folder + "/gst-registry",
    };
    constexpr const char* PASSED_ON[] = {"TZ",           "LECTERN_LANGUAGE", "LD_LIBRARY_PATH",
                                         "ASAN_OPTIONS", "UBSAN_OPTIONS",    "TSAN_OPTIONS"};
    for (const char* name : PASSED_ON) {
        if (const char* value = std::getenv(name)) {
            environment.push_back(std::string(name) + "=" + value);
        }
    }
    return environment;
}

} // namespace

int spawnEngine(const LaunchSettings& settings, const TemporaryFolder& folder, int socket, pid_t& pid) {
    static_assert(ENGINE_SOCKET == STDERR_FILENO + 1 && ENGINE_FOLDER == ENGINE_SOCKET + 1);
    return spawn({.path = settings.program,
                  .arguments = {folder.path()},
                  .environment = environmentIn(folder.path()),
                  .files = {-1, settings.verbose ? STDOUT_FILENO : -1, settings.verbose ? STDERR_FILENO : -1,
                            socket, folder.lock()}},
                 pid);
}

} // namespace lectern::engine
