// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/WordDocument.h"
#include "engine/process/MappedSurface.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

typedef struct _GDBusConnection GDBusConnection;
typedef struct _LecternIpcWord LecternIpcWord;

namespace lectern::engine {

// Answers the calls of the Word interface with the one document it opens.
// Used by the thread that runs the main loop.
class WordService {
public:
    WordService();
    ~WordService();
    WordService(const WordService&) = delete;
    WordService& operator=(const WordService&) = delete;

    // The suite to open with, not owned; null refuses every open. Temporary
    // copies are made in `folder`.
    void useOffice(Office* office, const std::string& folder);
    // False when it cannot be exported.
    bool exportOn(GDBusConnection* connection);

    std::int32_t open(const std::string& path, const std::string& password);
    std::int32_t setSurface(int memory, std::int32_t width, std::int32_t height);

    // Null before a document is open.
    WordDocument* document() { return mDocument.get(); }
    // Whether the last operation wrote to the surface.
    bool takePainted() { return mDocument && mDocument->takePainted(); }

private:
    Office* mOffice = nullptr;
    std::string mFolder;
    LecternIpcWord* mSkeleton;
    // Before the document, which paints on it to its end.
    std::optional<MappedSurface> mSurface;
    std::unique_ptr<WordDocument> mDocument;
};

} // namespace lectern::engine
