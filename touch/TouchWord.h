// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "touch/TouchHandling.h"
#include "touch/TouchWordModule.h"
#include "word/Word.h"

#include <optional>
#include <string>
#include <vector>

// The view of a word-processing document for clients that ask for touch manners.
//
// A zoom lays the text out anew, and every line breaks elsewhere. So a zoom holds a
// character: its line is at the same place of the view before and after. While only
// zooms follow each other they hold the same character, because the first character of
// a line is another one after each layout.
//
// Without wide mode the text moves only up and down.
class TouchWord : public TouchHandling<Word> {
public:
    TouchWord(int width, int height, int docId, unsigned int dataStoreId, double dotsPerInch);

    // Opens a file of any name, if the module can.
    int openFile(const char* path, const char* password) override;

    int initializeWord() override;
    void resizeDocument() override;
    void setWideMode(bool on) override;
    void handlePaintGesture(unsigned int* frameBuffer) override;

    bool handleDoubleClick(int x, int y) override;
    bool handleGestureStart(double scale, double unused) override;
    bool handleRecord(const ClientServerMessage& message) override;
    bool clampPosition(int& x, int& y, int maxX, int maxY) const override;
    using TouchHandling::clampPosition;

    ViewPlace place() const override;
    void scrollTo(int x, int y) override;
    // A zoom about no point in particular holds the first whole line.
    CpPoint middle() const override { return {mWidth / 2, 0}; }
    std::string lastLink() const override { return mLastLink; }

    std::string doSearch(const char* text) override;
    int nextResult() override;
    int previousResult() override;
    TouchResult search(const char* text, const SearchOptions& options, HitPlace& hit) override;
    TouchResult stepToHit(int step, HitPlace& hit) override;

    TouchResult select(SelectUnit unit, const CpPoint& point) override;
    TouchResult moveSelectionEnd(SelectEnd end, const CpPoint& point) override;
    TouchResult selection(Selection& selection) override;
    TouchResult visibleText(std::vector<TextLine>& lines) override;
    TouchResult outline(std::vector<OutlineEntry>& entries) override;
    TouchResult goTo(int entry) override;

protected:
    bool jumpToCharacter(int32_t story, uint32_t position) override;
    void hyperlinkTapped(const uint16_t* target) override;
    void renumber(int rows) override;

    TouchWordModule mTouchModule;

private:
    // A line of the text.
    struct Line {
        uint32_t character = 0; // one in it
        int row = 0;            // the document row of its top
        int height = 0;         // 0 if it is not known
    };
    // What a zoom holds: a character, and how far below its line's top it holds the text.
    struct Hold {
        uint32_t character = 0;
        double offset = 0.0;  // pixels at the zoom 1
        bool isInside = true; // that place is in the line
        int viewRow = 0;      // of that place
        int documentRow = 0;
        int scroll = 0; // mScroll.y after the zoom: it is another one once the view has moved
    };

    CpPoint moveTo(const CpPoint& wanted) override;
    void cover() override;
    void zoomAbout(double scale, const CpPoint& from, const CpPoint& to) override;
    TapTarget tapTarget(const CpPoint& point) override;
    void layOutForSize() override;
    bool dragLocks() const override { return mWideMode; }
    bool movesSideways() const override { return mWideMode; }

    // Moves.
    bool isFar(int row) const;
    void jumpNear(int row);
    void learnSize();
    void estimateSize();
    int estimatedRow(uint32_t character) const;
    int bufferX(int x) const { return saturatedDifference(saturatedSum(mScroll.x, x), mDocPixmap->Left()); }
    int bufferY(int y) const { return saturatedDifference(saturatedSum(mScroll.y, y), mDocPixmap->Top()); }
    CpRect onView(const module_rect& rectangle) const;

    // Zooms.
    std::optional<Line> lineAt(int x, int row);
    std::optional<Line> firstWholeLine();
    std::optional<Hold> holdAt(const CpPoint& point);
    std::optional<Hold> holdFirstLine();
    void layOutHolding(const std::optional<Hold>& hold, int viewRow, double oldScale);
    void show(const Hold& hold, int viewRow, int documentRow);
    static bool isInLine(const Hold& hold, const Line& line);
    int offsetInLine(const Hold& hold);
    void limitZoom();

    // Search.
    TouchResult find(const char* text, const SearchOptions& options);
    int firstHitInReach();
    void goToHit(int hit);
    bool showHit();
    HitPlace hitPlace() const;

    const std::vector<OutlineEntry>* readOutline();

    std::optional<Hold> mHold; // of the last zoom
    bool mTapsAgain = false;   // a double tap where the last zoom was
    std::string mLastLink;
    int mHit = -1; // index of the current hit in mResults

    // The rows of the whole text, and what they were learned from.
    long long mRows = 0;
    bool mRowsExact = false;
    bool mNumbered = false; // the number of the stretch's first row was learned, not guessed
    unsigned mSizeGeneration = 0;
    double mSizeTime = 0.0;

    bool mOutlineRead = false;
    std::vector<OutlineEntry> mOutline;
    std::vector<uint32_t> mHeadings; // the positions of its entries
};
