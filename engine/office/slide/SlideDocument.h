// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/DocumentInformation.h"
#include "engine/layout/OutlineItem.h"
#include "engine/layout/Surface.h"
#include "engine/office/AnyFile.h"
#include "engine/office/Office.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace lectern::engine {

// Number of hits on a slide and in its notes.
struct SlideHits {
    int32_t slide = 0;
    int32_t onSlide = 0;
    int32_t inNotes = 0;
};

// A line of text on a slide, as sstg_text_line.
struct SlideLine {
    std::u16string text;
    std::vector<PixelRect> places; // of each unit of the text
    int32_t paragraph = 0;
};

// A presentation. Operations have the meanings of the sstg_ functions in
// modules/SlideshowToGoModule.h. They return module_result codes; outputs are
// valid with MODULE_OK only. Use from one thread only.
class SlideDocument {
public:
    // Opens an absolute path that the caller has found to be a readable regular
    // file. `temporaryDirectory` receives temporary copies.
    static int32_t open(Office& office, const std::string& path, const std::string& temporaryDirectory,
                        std::unique_ptr<SlideDocument>& document);
    // The same for a file of any name, which may be protected by a password.
    static int32_t openAny(Office& office, const AnyFile& file, std::unique_ptr<SlideDocument>& document);
    ~SlideDocument();
    SlideDocument(const SlideDocument&) = delete;
    SlideDocument& operator=(const SlideDocument&) = delete;

    // Number of pictures, stored one after the other, that the memory of each
    // surface set from now on has room for; 1 by default. The extra pictures
    // keep the slides painted last.
    void setRoom(int32_t pictures) { mRoom = pictures; }
    // The pixels stay the caller's and must be valid until another surface is set.
    int32_t setSurface(uint32_t* pixels, int32_t width, int32_t height);
    // Makes one of the surface's pictures show the slide; picture() tells which
    // one. A surface must be set.
    int32_t render(int32_t slide);
    int32_t picture() const { return mPicture; }
    // Does a small part of the work of the next paint; call when idle. Returns
    // false when nothing is left to do.
    bool prepareNext();

    int32_t slideCount(int32_t& count);
    // In points (1/72 inch), each at least 1.
    int32_t dimensions(int32_t slide, int32_t& width, int32_t& height);
    int32_t title(int32_t slide, std::u16string& text);
    // `text` is empty when the slide has no notes.
    int32_t note(int32_t slide, std::u16string& text);
    int32_t outline(int32_t slide, std::vector<OutlineItem>& items);

    int32_t setHighlightColor(const Colour& colour);
    // Searches the slides `first` to `last`, both included. When the search
    // takes too long it returns the hits so far; repeating the same search gets
    // further, because the texts of searched slides are kept.
    int32_t find(const std::u16string& text, int32_t first, int32_t last, std::vector<SlideHits>& slides);
    // The rectangles of each hit on the slide that was rendered last.
    int32_t foundRegions(std::vector<std::vector<PixelRect>>& regions);
    // Offset in UTF-16 units of each hit in the slide's notes.
    int32_t foundNoteOffsets(int32_t slide, std::vector<int32_t>& offsets);
    int32_t stopFind();
    // Flags of HitOptions.h.
    int32_t setFindOptions(int32_t flags);

    // The operations below take the size of a picture of the slide, in whose pixels
    // points and rectangles are.
    int32_t link(int32_t slide, int32_t x, int32_t y, int32_t width, int32_t height, int32_t& target,
                 std::u16string& address);
    int32_t shapeArea(int32_t slide, int32_t x, int32_t y, int32_t width, int32_t height, PixelRect& area);
    int32_t textLines(int32_t slide, int32_t width, int32_t height, std::vector<SlideLine>& lines);

    int32_t information(DocumentInformation& information);
    // Frees the data that is kept only for speed.
    int32_t releaseMemory();

private:
    struct Private;
    explicit SlideDocument(std::unique_ptr<Private> d);
    template<class Load>
    static int32_t openLoaded(Office& office, const std::string& path, Load load,
                              std::unique_ptr<SlideDocument>& document);
    std::unique_ptr<Private> mPrivate;
    int32_t mRoom = 1;
    int32_t mPicture = 0;
};

} // namespace lectern::engine
