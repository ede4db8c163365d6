// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"
#include "engine/office/Office.h"
#include "engine/process/endpoints/MappedSurface.h"
#include "engine/protocol/BorderGuard.h"
#include "modules/ModuleResults.h"

#include <gio/gio.h>

#include <array>
#include <atomic>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <utility>

namespace lectern::engine {

// Answers the calls of one document interface with the one document that it
// opens, which paints on up to SurfaceCount surfaces. Use from the thread that
// runs the main loop.
template<class DocumentType, class SkeletonType, std::size_t SurfaceCount = 1>
class DocumentEndpoint {
public:
    using Document = DocumentType;
    using Skeleton = SkeletonType;

    DocumentEndpoint(const DocumentEndpoint&) = delete;
    DocumentEndpoint& operator=(const DocumentEndpoint&) = delete;

    // Sets the suite to open with (not owned; with null every open fails) and
    // the folder for temporary copies.
    void useOffice(Office* office, const std::string& folder) {
        mOffice = office;
        mFolder = folder;
    }
    // Sets what is called after every answer.
    void notifyOfAnswers(std::function<void()> notify) { mNotify = std::move(notify); }
    // Returns false when the interface cannot be exported.
    bool exportOn(GDBusConnection* connection) {
        return g_dbus_interface_skeleton_export(G_DBUS_INTERFACE_SKELETON(mSkeleton.get()), connection, mPath,
                                                nullptr) != FALSE;
    }

    // Password: a string for kinds of documents that take one.
    template<class... Password>
    std::int32_t open(const std::string& path, const Password&... password) {
        if (mOffice == nullptr || mDocument) {
            return MODULE_FAILED;
        }
        return guardedAtBorder(
            [&] { return Document::open(*mOffice, path, password..., mFolder, mDocument); });
    }
    // The same for a file of any name. `progress` is the memory file for the percentage that
    // is done; it may be invalid.
    std::int32_t openAny(int progress, const std::string& path, const std::string& password) {
        if (mOffice == nullptr || mDocument) {
            return MODULE_FAILED;
        }
        const std::optional<MappedSurface> told = MappedSurface::map(progress, 1, 1);
        const auto tell = [&](std::int32_t percent) {
            if (told) {
                std::atomic_ref(*told->pixels()).store(static_cast<std::uint32_t>(percent));
            }
        };
        return guardedAtBorder([&] {
            return Document::openAny(*mOffice, {path, password, mFolder, tell}, mDocument);
        });
    }
    // Runs an operation on the open document; MODULE_FAILED without one.
    template<class Operation>
    std::int32_t run(Operation operation) {
        return mDocument ? guardedAtBorder([&] { return operation(*mDocument); }) : MODULE_FAILED;
    }
    // Outputs that every answer of this interface has after its result.
    std::tuple<> afterResult() { return {}; }
    // Lets a document that has prepareNext() prepare its next answers, a part at
    // a time, as soon as no call is waiting; and one that has prepareRest() do
    // longer work once no call has come for a while. Call after every answer.
    void prepareWhenIdle() {
        if (mNotify) {
            mNotify();
        }
        if constexpr (CAN_PREPARE) {
            if (mIdle == 0) {
                mIdle = g_timeout_add_full(G_PRIORITY_DEFAULT_IDLE, IDLE_PAUSE, &prepare, this, nullptr);
            }
        }
        if constexpr (HAS_REST) {
            g_clear_handle_id(&mRest, g_source_remove);
            mRest = g_timeout_add_full(G_PRIORITY_LOW, REST_PAUSE, &prepareRest, this, nullptr);
        }
    }

protected:
    // Takes ownership of the skeleton; `path` is the interface's object path.
    DocumentEndpoint(Skeleton* skeleton, const char* path) : mSkeleton(skeleton), mPath(path) {}
    ~DocumentEndpoint() {
        g_clear_handle_id(&mIdle, g_source_remove);
        g_clear_handle_id(&mRest, g_source_remove);
    }

    Skeleton* skeleton() { return mSkeleton.get(); }
    // Null until a document is open.
    Document* document() { return mDocument.get(); }
    // Calls set(document, pixels) for a mapped surface, and keeps the surface
    // when that returns MODULE_OK.
    template<class Set>
    std::int32_t replaceSurface(std::size_t index, std::optional<MappedSurface> surface, Set set) {
        if (!surface || index >= SurfaceCount) {
            return MODULE_BAD_ARGUMENT;
        }
        const std::int32_t result = run([&](Document& document) { return set(document, surface->pixels()); });
        if (result == MODULE_OK) {
            mSurfaces[index] = std::move(surface);
        }
        return result;
    }
    // Returns the surfaces' memory to the system; the painted pixels are lost.
    void discardSurfaces() {
        for (std::optional<MappedSurface>& surface : mSurfaces) {
            if (surface) {
                surface->discard();
            }
        }
    }

private:
    // Milliseconds. After an answer the service copies the pixels, which needs
    // both processors of a small machine for up to 3 ms.
    static constexpr guint IDLE_PAUSE = 4;
    static constexpr bool CAN_PREPARE = requires(Document & document) {
        { document.prepareNext() } -> std::same_as<bool>;
    };

    // Milliseconds. A finger that moves, and a glide until shortly before its end, make
    // calls more often than that.
    static constexpr guint REST_PAUSE = 600;
    static constexpr bool HAS_REST = requires(Document & document) {
        { document.prepareRest() } -> std::same_as<bool>;
    };

    // Works until a call waits or nothing is left to do; then forgets the source.
    template<class Work>
    gboolean workOn(unsigned& source, Work work) {
        bool more = mDocument != nullptr;
        while (more && g_main_context_pending(nullptr) == FALSE) {
            more = work(*mDocument);
        }
        source = more ? source : 0;
        return more ? G_SOURCE_CONTINUE : G_SOURCE_REMOVE;
    }
    static gboolean prepare(gpointer user) {
        auto& endpoint = *static_cast<DocumentEndpoint*>(user);
        return endpoint.workOn(endpoint.mIdle, [](auto& document) { return document.prepareNext(); });
    }
    static gboolean prepareRest(gpointer user) {
        auto& endpoint = *static_cast<DocumentEndpoint*>(user);
        return endpoint.workOn(endpoint.mRest, [](auto& document) { return document.prepareRest(); });
    }

    Office* mOffice = nullptr;
    std::function<void()> mNotify;
    std::string mFolder;
    const GLibHolder<Skeleton> mSkeleton;
    const char* mPath;
    // Declared before the document, which uses the surfaces until its destruction.
    std::array<std::optional<MappedSurface>, SurfaceCount> mSurfaces;
    std::unique_ptr<Document> mDocument;
    // Ids of the main loop's sources for that, 0 without one.
    unsigned mIdle = 0;
    unsigned mRest = 0;
};

} // namespace lectern::engine
