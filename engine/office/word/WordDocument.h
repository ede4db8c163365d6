// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/DocumentInformation.h"
#include "engine/layout/TextTypes.h"
#include "engine/office/AnyFile.h"
#include "engine/office/Office.h"

#include <cstdint>
#include <memory>
#include <string>

namespace lectern::engine {

// A word-processing document laid out as one continuous text, a stretch of
// which is painted on a surface. Operations have the meanings of the wtg_
// functions in modules/WordToGoModule.h; they return module_result codes. Use
// from one thread only.
class WordDocument {
public:
    // Opens an absolute path that the caller has found to be a readable regular
    // file. An empty password means no password. `temporaryDirectory` receives
    // temporary copies.
    static int32_t open(Office& office, const std::string& path, const std::string& password,
                        const std::string& temporaryDirectory, std::unique_ptr<WordDocument>& document);
    // The same for a file of any name.
    static int32_t openAny(Office& office, const AnyFile& file, std::unique_ptr<WordDocument>& document);
    ~WordDocument();
    WordDocument(const WordDocument&) = delete;
    WordDocument& operator=(const WordDocument&) = delete;

    // The pixels stay the caller's and must be valid until another surface is
    // set. With the size of the last layout the stretch is painted at once; any
    // other size only marks the layout as outdated.
    int32_t setSurface(uint32_t* pixels, int32_t width, int32_t height);
    int32_t setDpi(int32_t dpi);

    int32_t characterCount(uint32_t& count);
    int32_t stretchPlace(StretchPlace& place);
    int32_t scrollDown(int32_t rows, int32_t& scrolled);
    int32_t scrollUp(int32_t rows, int32_t& scrolled);
    int32_t jumpToCharacter(int32_t story, uint32_t position);
    // Makes the stretch begin at a row of the whole text that it has begun at before.
    int32_t showRow(int64_t row);
    // Width of the layout and number of rows of the whole text, in pixels.
    int32_t layoutSize(int32_t& width, int32_t& height);

    // The next functions have the meanings of modules/TouchWordFunctions.h.
    int32_t characterAt(int32_t x, int32_t y, uint32_t& character, std::vector<PixelRect>& line);
    int32_t textSize(int64_t& top, int64_t& rows, uint32_t& characters);
    int32_t tapArea(int32_t x, int32_t y, std::vector<PixelRect>& area, int32_t& mostDpi);
    // `ends` are those of each line's text in `text`.
    int32_t textLines(int32_t top, int32_t bottom, std::u16string& text, std::vector<uint32_t>& ends,
                      std::vector<PixelRect>& places);
    int32_t outline(std::u16string& text, std::vector<uint32_t>& ends, std::vector<int32_t>& levels,
                    std::vector<uint32_t>& positions);

    // Sets the colour of hits and selections made from now on.
    int32_t setHighlightColor(uint8_t red, uint8_t green, uint8_t blue);
    int32_t setFindOptions(int32_t flags);
    // Marks the hits until the next find or stopFind.
    int32_t find(const std::u16string& text, CharacterRange bounds, std::vector<CharacterRange>& hits);
    int32_t foundRegions(std::vector<FoundRegion>& regions);
    int32_t stopFind();

    int32_t clickInfo(int32_t x, int32_t y, ClickTarget& target);
    int32_t clickRegions(std::vector<PixelRect>& regions);
    // Paints a footnote, endnote or comment, identified by the type and number
    // from clickInfo, on rows [50, 50 + height) of the surface, and fills the
    // rest with white.
    int32_t openSecondary(ClickType type, uint32_t number, int32_t height);
    int32_t smartZoom(int32_t x, int32_t y, PixelRect& area);

    int32_t selectAll();
    int32_t selectArea(int32_t left, int32_t top, int32_t right, int32_t bottom);
    int32_t selectLine(int32_t x, int32_t y);
    int32_t selectWord(int32_t x, int32_t y);
    int32_t clearSelection();
    int32_t moveSelectionEnd(int32_t end, int32_t x, int32_t y);
    int32_t selectionRegions(std::vector<PixelRect>& rectangles);
    CharacterRange selection() const;
    int32_t selectRange(CharacterRange range);
    // The text has a line feed between two paragraphs.
    int32_t copySelection(std::u16string& text);
    int32_t scrollToRange(CharacterRange range);

    int32_t information(DocumentInformation& information);
    int32_t wordCount(int32_t& count);

    // Do a small part of the work of calls to come; call when idle. Both return
    // false when nothing is left to do.
    bool prepareNext(); // of a further move of the stretch
    bool prepareRest(); // of a move to anywhere: lays out the rest of a long text

    // Returns whether the surface was written since the last call of this function.
    bool takePainted();

private:
    struct Private;
    explicit WordDocument(std::unique_ptr<Private> d);
    template<class Moved>
    int32_t scroll(int32_t rows, int32_t& scrolled, Moved moved);

    std::unique_ptr<Private> mPrivate;
};

} // namespace lectern::engine
