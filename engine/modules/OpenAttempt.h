// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/FileDescriptor.h"
#include "base/Mutex.h"
#include "engine/host/Export.h"
#include "engine/host/SharedSurface.h"
#include "engine/modules/Believable.h"
#include "engine/modules/DocumentHandle.h"
#include "modules/TouchFunctions.h"

#include <gio/gio.h>
#include <gio/gunixfdlist.h>

#include <cstdint>
#include <functional>
#include <memory>

namespace lectern::engine {

// Makes the call that opens a file of any name, in an engine. The memory file receives the
// engine's progress; -1: nobody wants to know.
using LoadAnyInEngine = std::function<std::int32_t(Engine&, TimePoint deadline, const DocumentFile&,
                                                   const std::string& password, int progress)>;

// An open of a file of any name, which its caller may give up and follow. It runs on a
// thread of its own, and the caller waits for it, for the order to give it up and for
// progress. An engine tells its progress by a number in shared memory, which is read ten
// times a second: so a hostile one can do no more than to tell a wrong number.
class LECTERN_ENGINE_EXPORT OpenAttempt {
public:
    // Opens the request's file for the handle, as openInEngine does. Returns its code, or
    // MODULE_CANCELLED; then the attempt ends by itself, nearly always before this returns.
    static std::int32_t run(const lectern_open_request& request, const LoadAnyInEngine& load,
                            std::unique_ptr<DocumentHandle>& handle);

    OpenAttempt();
    OpenAttempt(const OpenAttempt&) = delete;
    OpenAttempt& operator=(const OpenAttempt&) = delete;

private:
    struct Texts;
    bool follow(const lectern_open_request& request);
    std::int32_t take(std::unique_ptr<DocumentHandle>& handle);
    void open(const Texts& texts, const LoadAnyInEngine& load, std::unique_ptr<DocumentHandle> handle);
    void finish(std::int32_t result, std::unique_ptr<DocumentHandle> handle);
    std::int32_t loadIn(Engine& engine, const std::function<std::int32_t()>& load);
    void giveUp();
    std::int32_t percent() const;

    const FileDescriptor mEnded;                    // an eventfd
    const std::unique_ptr<SharedSurface> mProgress; // one pixel; null without memory for it
    Mutex mMutex;
    Engine* mEngine GUARDED_BY(mMutex) = nullptr; // while it loads
    bool mGivenUp GUARDED_BY(mMutex) = false;
    // At the end.
    std::unique_ptr<DocumentHandle> mHandle GUARDED_BY(mMutex); // null if it was given up
    std::int32_t mResult GUARDED_BY(mMutex) = MODULE_FAILED;
};

// Implements a module's open function for a file of any name; as openDocument.
template<class Handle>
std::int32_t openAnyDocument(const lectern_open_request* request, const LoadAnyInEngine& load, void** doc) {
    if (doc == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    *doc = nullptr;
    if (request == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return guardedAtBorder([&] {
        std::unique_ptr<DocumentHandle> handle = std::make_unique<Handle>();
        const std::int32_t result = OpenAttempt::run(*request, load, handle);
        if (result == MODULE_OK) {
            *doc = handle.release();
        }
        return result;
    });
}

// The typed call that opens a file of any name; `method` is the generated function of the
// interface that `interfaceOf` returns. `outputs` are those after its result.
template<class Interface, class Method, class... Outputs>
std::int32_t callOpenAny(Engine& engine, TimePoint deadline, Interface* interface, Method method,
                         const DocumentFile& file, const std::string& password, int progress,
                         Outputs... outputs) {
    const GLibHolder<GUnixFDList> files(g_unix_fd_list_new());
    if (progress >= 0 && g_unix_fd_list_append(files.get(), progress, nullptr) < 0) {
        return MODULE_FAILED;
    }
    gint result = MODULE_FAILED;
    const std::int32_t sent = engine.call(deadline, [&](GError** error) {
        return method(interface, g_variant_new_handle(0), file.path.c_str(), password.c_str(),
                      G_DBUS_CALL_FLAGS_NONE, G_MAXINT, files.get(), &result, outputs..., nullptr, nullptr,
                      error);
    });
    return sent != MODULE_OK ? sent : codeFromEngine(result);
}

} // namespace lectern::engine
