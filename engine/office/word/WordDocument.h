// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/DocumentInformation.h"
#include "engine/layout/TextTypes.h"
#include "engine/office/Office.h"

#include <cstdint>
#include <memory>
#include <string>

namespace lectern::engine {

// A word-processing document laid out as one continuous text, a stretch of
// which is kept painted on a surface. The operations and their meanings are
// those of the wtg_ functions in modules/WordToGoModule.h; results are
// module_result codes. Used by one thread.
class WordDocument {
public:
    // Opens an absolute path, already known to be a readable regular file. An
    // empty password is none. temporaryDirectory is for copies of its own.
    static int32_t open(Office& office, const std::string& path, const std::string& password,
                        const std::string& temporaryDirectory, std::unique_ptr<WordDocument>& document);
    ~WordDocument();
    WordDocument(const WordDocument&) = delete;
    WordDocument& operator=(const WordDocument&) = delete;

    // The surface stays the caller's and valid until another is set. A size
    // other than the last laid-out one marks the layout stale, no more; with
    // the same size the stretch is painted again at once.
    int32_t setSurface(uint32_t* pixels, int32_t width, int32_t height);
    int32_t setDpi(int32_t dpi);

    int32_t characterCount(uint32_t& count);
    int32_t stretchPlace(StretchPlace& place);
    int32_t scrollDown(int32_t rows, int32_t& scrolled);
    int32_t scrollUp(int32_t rows, int32_t& scrolled);
    int32_t jumpToCharacter(int32_t story, uint32_t position);
    // Width of the layout and rows of the whole text, in pixels.
    int32_t layoutSize(int32_t& width, int32_t& height);

    // The colour, red, green and blue, of hits found and text selected from now on.
    int32_t setHighlightColor(uint8_t red, uint8_t green, uint8_t blue);
    // Also marks the hits, which stay marked until the next find or stopFind.
    int32_t find(const std::u16string& text, CharacterRange bounds, std::vector<CharacterRange>& hits);
    int32_t foundRegions(std::vector<FoundRegion>& regions);
    int32_t stopFind();

    int32_t clickInfo(int32_t x, int32_t y, ClickTarget& target);
    int32_t clickRegions(std::vector<PixelRect>& regions);
    // Paints a footnote, endnote or comment, its type and number as clickInfo
    // gave them, on rows [50, 50 + height) of the surface, the rest white.
    int32_t openSecondary(ClickType type, uint32_t number, int32_t height);
    int32_t smartZoom(int32_t x, int32_t y, PixelRect& area);

    int32_t selectAll();
    int32_t selectArea(int32_t left, int32_t top, int32_t right, int32_t bottom);
    int32_t selectLine(int32_t x, int32_t y);
    int32_t selectWord(int32_t x, int32_t y);
    int32_t clearSelection();
    // A line feed stands between two paragraphs.
    int32_t copySelection(std::u16string& text);
    int32_t scrollToRange(CharacterRange range);

    int32_t information(DocumentInformation& information);
    int32_t wordCount(int32_t& count);

    // True when the surface was written since the last call of this.
    bool takePainted();

private:
    struct Private;
    explicit WordDocument(std::unique_ptr<Private> d);
    template<class Moved>
    int32_t scroll(int32_t rows, int32_t& scrolled, Moved moved);

    std::unique_ptr<Private> mPrivate;
};

} // namespace lectern::engine
