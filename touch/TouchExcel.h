// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "excel/Excel.h"
#include "touch/SheetFunctions.h"
#include "touch/SheetScreen.h"
#include "touch/TouchHandling.h"

#include <map>
#include <string>
#include <vector>

// The view of a spreadsheet for clients that ask for touch manners.
//
// The window is always rendered where the view is, before the view shows it, with more
// of the sheet in the direction in which it moves. What cannot be rendered is drawn as
// cells without contents.
//
// Zooms are rounded so that a pixel count per inch is whole. Columns and rows have whole
// pixels, so a zoom does not multiply all places by the same number; places that must
// stay are therefore kept as places in cells.
//
// mOffscreenDirty tells that the contents or the layout of the sheet have changed.
// Whatever needs its layout calls takeChanges() first.
class TouchExcel : public TouchHandling<Excel> {
public:
    using TouchHandling::TouchHandling;

    // Opens a file of any name, if the module can.
    int openFile(const char* path, const char* password) override;

    int initializeExcel() override;
    void handlePaint(unsigned int* frameBuffer) override;
    void handlePaintGesture(unsigned int* frameBuffer) override;
    int drawOffscreenBuffer() override;

    bool handlePenDown(int x, int y) override;
    bool handlePenMove(int x, int y) override;
    bool handlePenUp(int x, int y) override;
    bool handleFlick(int vx, int vy) override;
    bool handleClick(int x, int y) override;
    int clearSelection() override;

    ViewPlace place() const override;
    // Shows the sheet where it stood when it was last current. Does not check the number.
    int jumpToSheet(int sheet) override;

    // Search goes through all sheets.
    std::string doSearch(const char* text) override;
    int nextResult() override;
    int previousResult() override;
    int stopFind() override;
    int ReinitSearchRects() override;
    TouchResult search(const char* text, const SearchOptions& options, HitPlace& hit) override;
    TouchResult stepToHit(int step, HitPlace& hit) override;

    TouchResult select(SelectUnit unit, const CpPoint& point) override;
    TouchResult moveSelectionEnd(SelectEnd end, const CpPoint& point) override;
    TouchResult selection(Selection& selection) override;
    TouchResult visibleText(std::vector<TextLine>& lines) override;
    TouchResult outline(std::vector<OutlineEntry>& entries) override;
    TouchResult goTo(int entry) override;
    TouchResult cell(int column, int row, Cell& cell) override;

protected:
    struct CellIndex {
        int column = 0;
        int row = 0;
    };
    // Cells, both ends included, and the document pixels that they cover.
    struct CellRange {
        int sheet = -1; // -1: there are none
        CellIndex first;
        CellIndex last;
        CpRect place;
    };
    // What is selected: cells, or all of some columns or rows, or everything.
    enum class Selected { Cells, Columns, Rows, All };
    // A point of the sheet by its cell and the part of the cell's size behind its corner.
    struct CellPoint {
        CellIndex cell;
        double right = 0.0;
        double down = 0.0;
    };

    // The document pixels of the part of the view that shows cells.
    CpRect shownCells() const;
    bool isOnSheet(const CpPoint& point) const;

    const CellRange& tapped() const { return mTapped; }
    const CpRect& rendered() const { return mRendered; }
    SheetFunctions& functions() { return mFunctions; }

private:
    CpPoint moveTo(const CpPoint& wanted) override;
    void cover() override;
    void zoomAbout(double scale, const CpPoint& from, const CpPoint& to) override;
    double fit() const override { return wholeZoom(1.0); }
    double smallestZoom() const override;
    TapTarget tapTarget(const CpPoint& point) override;
    void layOutForSize() override;
    void moveGuide(const TrackKind& tracks, const CpPoint& pen) override;

    // Layout.
    double wholeZoom(double zoom) const;
    void limitZoom();
    void replaceSurface();
    void placeWindow(int left, int top);
    void takeChanges();
    // Finds everything again that is kept of the sheet's layout.
    void layOutAnew();

    // Painting.
    void draw(unsigned int* frameBuffer, const SheetPlace& place);
    void coverAround();
    void drawMarks(SheetScreen& screen);
    int lineThickness() const;
    SheetPlace previewPlace() const;

    // Cells.
    CellIndex cellAt(const CpPoint& documentPoint) const;
    CpRect boundsAt(const CpPoint& documentPoint) const;
    CellPoint cellPoint(const CpPoint& documentPoint) const;
    CpPoint documentPointOf(const CellPoint& point, const CpPoint& estimate) const;
    // The first document pixel and the length of a column or row; the length is 0 if it is
    // hidden. False if there is none. The search begins at the pixel `estimate`.
    bool findTrack(const TrackKind& tracks, int index, int estimate, int& start, int& length) const;
    void findPlace(CellRange& range) const;
    CpRect onView(const CpRect& documentRect) const;
    TouchResult fetchCell(const CellIndex& index, Cell& cell) const;
    void tapCell(const CpPoint& point);

    // Selection.
    void selectRange(Selected selected, const CellRange& range);
    void noteSelectedTracks();
    void findSelectedTracks();
    CellRange cellsAt(const CpPoint& documentPoint) const;
    void forgetSelection();

    // Search.
    void findIn(int sheet);
    // False if no sheet in this direction has a hit.
    bool findInNextSheet(int from, int step);
    void countInOtherSheets();
    int firstHitFromView() const;
    void showHit(HitPlace& hit);
    HitPlace currentHit() const;
    CpRect hitPlace() const;

    struct SheetScroll {
        CpPoint position{0, 0};
        double scale = 1.0;
    };
    struct Search {
        std::string text;        // empty: there is none
        int sheet = -1;          // of the hits that the module has
        std::vector<int> counts; // of the hits of each sheet; UNCOUNTED until they are known
    };

    SheetFunctions mFunctions{mModuleHandle};
    CpRect mRendered;                    // the document pixels that the surfaces show; empty for none
    bool mIsStale = true;                // they must be rendered
    CpPoint mCovered{0, 0};              // mScroll when it was last seen to that the window covers it
    std::map<int, SheetScroll> mScrolls; // of the sheets that were shown before
    CellRange mTapped;
    CellRange mSelected;
    Selected mSelectedKind = Selected::Cells;
    Search mSearch;
};
