// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"
#include "engine/office/Office.h"
#include "engine/process/endpoints/MappedSurface.h"
#include "engine/protocol/Guarded.h"
#include "modules/ModuleResults.h"

#include <gio/gio.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <utility>

namespace lectern::engine {

// Answers the calls of the interface of one kind of documents with the one
// document it opens, which paints on up to SurfaceCount surfaces. Used by the
// thread that runs the main loop.
template<class DocumentType, class SkeletonType, std::size_t SurfaceCount = 1>
class DocumentEndpoint {
public:
    using Document = DocumentType;
    using Skeleton = SkeletonType;

    DocumentEndpoint(const DocumentEndpoint&) = delete;
    DocumentEndpoint& operator=(const DocumentEndpoint&) = delete;

    // The suite to open with, not owned; null refuses every open. Temporary
    // copies are made in `folder`.
    void useOffice(Office* office, const std::string& folder) {
        mOffice = office;
        mFolder = folder;
    }
    // False when it cannot be exported.
    bool exportOn(GDBusConnection* connection) {
        return g_dbus_interface_skeleton_export(G_DBUS_INTERFACE_SKELETON(mSkeleton.get()), connection, mPath,
                                                nullptr) != FALSE;
    }

    // Password: a text, for kinds that take one.
    template<class... Password>
    std::int32_t open(const std::string& path, const Password&... password) {
        if (mOffice == nullptr || mDocument) {
            return MODULE_FAILED;
        }
        return guarded([&] { return Document::open(*mOffice, path, password..., mFolder, mDocument); });
    }
    // Runs an operation on the open document.
    template<class Operation>
    std::int32_t run(Operation operation) {
        return mDocument ? guarded([&] { return operation(*mDocument); }) : MODULE_FAILED;
    }
    // What every answer of this kind has behind its result.
    std::tuple<> afterResult() { return {}; }

protected:
    // Takes the skeleton over; `path` is the interface's object path.
    DocumentEndpoint(Skeleton* skeleton, const char* path) : mSkeleton(skeleton), mPath(path) {}
    ~DocumentEndpoint() = default;

    Skeleton* skeleton() { return mSkeleton.get(); }
    // Null before a document is open.
    Document* document() { return mDocument.get(); }
    // Has a mapped surface set; it stays when `set`, which takes the document and
    // the pixels, gives MODULE_OK.
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
    // The system takes back the memory of all that was painted.
    void discardSurfaces() {
        for (std::optional<MappedSurface>& surface : mSurfaces) {
            if (surface) {
                surface->discard();
            }
        }
    }

private:
    Office* mOffice = nullptr;
    std::string mFolder;
    const GLibHolder<Skeleton> mSkeleton;
    const char* mPath;
    // Before the document, which paints on them to its end.
    std::array<std::optional<MappedSurface>, SurfaceCount> mSurfaces;
    std::unique_ptr<Document> mDocument;
};

} // namespace lectern::engine
