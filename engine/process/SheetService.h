// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/sheet/SheetDocument.h"
#include "engine/process/MappedSurface.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

typedef struct _GDBusConnection GDBusConnection;
typedef struct _LecternIpcSheet LecternIpcSheet;

namespace lectern::engine {

// Answers the calls of the Sheet interface with the one workbook it opens.
// Used by the thread that runs the main loop.
class SheetService {
public:
    SheetService();
    ~SheetService();
    SheetService(const SheetService&) = delete;
    SheetService& operator=(const SheetService&) = delete;

    // The suite to open with, not owned; null refuses every open. Temporary
    // copies are made in `folder`.
    void useOffice(Office* office, const std::string& folder);
    // False when it cannot be exported.
    bool exportOn(GDBusConnection* connection);

    std::int32_t open(const std::string& path, const std::string& password);
    std::int32_t setSurface(std::int32_t area, int memory, std::int32_t width, std::int32_t height);

    // Null before a workbook is open.
    SheetDocument* document() { return mDocument.get(); }

private:
    Office* mOffice = nullptr;
    std::string mFolder;
    LecternIpcSheet* mSkeleton;
    // Before the document, which paints on them to its end.
    std::array<std::optional<MappedSurface>, sheetAreas> mSurfaces;
    std::unique_ptr<SheetDocument> mDocument;
};

} // namespace lectern::engine
