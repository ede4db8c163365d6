// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/slide/SlideDocument.h"
#include "engine/process/MappedSurface.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

typedef struct _GDBusConnection GDBusConnection;
typedef struct _LecternIpcSlide LecternIpcSlide;

namespace lectern::engine {

// Answers the calls of the Slide interface with the one presentation it opens.
// Used by the thread that runs the main loop.
class SlideService {
public:
    SlideService();
    ~SlideService();
    SlideService(const SlideService&) = delete;
    SlideService& operator=(const SlideService&) = delete;

    // The suite to open with, not owned; null refuses every open. Temporary
    // copies are made in `folder`.
    void useOffice(Office* office, const std::string& folder);
    // False when it cannot be exported.
    bool exportOn(GDBusConnection* connection);

    std::int32_t open(const std::string& path);
    std::int32_t setSurface(int memory, std::int32_t width, std::int32_t height, std::int32_t pictures);
    std::int32_t releaseMemory();

    // Gets ready for the next paint when all calls have been answered.
    void prepareWhenIdle();

    // Null before a presentation is open.
    SlideDocument* document() { return mDocument.get(); }

private:
    Office* mOffice = nullptr;
    std::string mFolder;
    LecternIpcSlide* mSkeleton;
    unsigned mIdle = 0; // the main loop's source for it
    // Before the document, which paints on it to its end.
    std::optional<MappedSurface> mSurface;
    std::unique_ptr<SlideDocument> mDocument;
};

} // namespace lectern::engine
