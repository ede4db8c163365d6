// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/DocumentInformation.h"
#include "engine/layout/OutlineItem.h"
#include "engine/layout/Surface.h"
#include "engine/office/Office.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace lectern::engine {

// How often a text is found on a slide and in its notes.
struct SlideHits {
    int32_t slide = 0;
    int32_t onSlide = 0;
    int32_t inNotes = 0;
};

// A presentation. The operations and their meanings are those of the sstg_
// functions in modules/SlideshowToGoModule.h; results are module_result codes,
// and what is given back means something only with MODULE_OK. Used by one
// thread.
class SlideDocument {
public:
    // Opens an absolute path, already known to be a readable regular file.
    // temporaryDirectory is for copies of its own.
    static int32_t open(Office& office, const std::string& path, const std::string& temporaryDirectory,
                        std::unique_ptr<SlideDocument>& document);
    ~SlideDocument();
    SlideDocument(const SlideDocument&) = delete;
    SlideDocument& operator=(const SlideDocument&) = delete;

    // How many pictures the memory of a surface set from now on has room for, one
    // after the other; 1 at first. Slides painted last are kept there.
    void setRoom(int32_t pictures) { mRoom = pictures; }
    // The memory stays the caller's and valid until another is set.
    int32_t setSurface(uint32_t* pixels, int32_t width, int32_t height);
    // Sees to it that one of the surface's pictures, which must be set, shows the
    // slide: picture().
    int32_t render(int32_t slide);
    int32_t picture() const { return mPicture; }
    // Does a bit of what the next paint will need, for when there is nothing else
    // to do. False when there is no more.
    bool prepareNext();

    int32_t slideCount(int32_t& count);
    // In 1/72 inch, 1 at least.
    int32_t dimensions(int32_t slide, int32_t& width, int32_t& height);
    int32_t title(int32_t slide, std::u16string& text);
    // Empty when the slide has none.
    int32_t note(int32_t slide, std::u16string& text);
    int32_t outline(int32_t slide, std::vector<OutlineItem>& items);

    int32_t setHighlightColour(const Colour& colour);
    // Searches the slides first to last. When that takes too long it gives what
    // was found, and the same search goes on from there the next time.
    int32_t find(const std::u16string& text, int32_t first, int32_t last, std::vector<SlideHits>& slides);
    // The rectangles of each hit on the slide that was rendered last.
    int32_t foundRegions(std::vector<std::vector<PixelRect>>& regions);
    // The first unit of each hit in the slide's notes.
    int32_t foundNoteOffsets(int32_t slide, std::vector<int32_t>& offsets);
    int32_t stopFind();

    int32_t information(DocumentInformation& information);
    // Lets go of what is kept only for speed.
    int32_t releaseMemory();

private:
    struct Private;
    explicit SlideDocument(std::unique_ptr<Private> d);
    std::unique_ptr<Private> mPrivate;
    int32_t mRoom = 1;
    int32_t mPicture = 0;
};

} // namespace lectern::engine
