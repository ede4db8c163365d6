// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "excel/TrackKind.h"
#include "modules/STGFunc.h"
#include "modules/Singleton.h"
#include "view/OfficeBase.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>

// The view of a spreadsheet.
//
// A paint composes the screen from three surfaces, which the module renders in one
// call: the cells, the row headers at the left edge and the column headers at the
// top. The headers stay at the edges while the cells scroll. The document pixel at
// mScroll is shown at the corner between them.
//
// The cells' surface is larger than the screen. Its bounds are the window, the part
// of the sheet that it shows, in document pixels. Scrolling only copies from it. The
// window stays the same during a glide. It is centred on the view and rendered again
// when the glide ends, after a zoom, and when the contents change. Outside the
// window a paint shows a chequered background that scrolls with the sheet.
//
// If the document failed to open, there are no surfaces: all calls are allowed and
// do not call the module.
//
// Only handlePaint, handleDoubleClick and the operations of the base class that say
// so lock mMutex.
class Excel : public OfficeBase {
public:
    // Width and height are in pixels, at least 1. dataStoreId is the identifier of a
    // state segment. If it is 0 or cannot be attached, writes a message to standard
    // output and creates a segment.
    Excel(int width, int height, int docId, unsigned int dataStoreId);
    ~Excel() override;

    void SaveStateToDataStore() override;
    void RestoreStateFromDataStore() override;
    int openFile(const char* path, const char* password) override;
    // Sets up the view after the module has opened the file. Returns 0, or the module's
    // code if it refuses the cells' surface; then the view has no surface.
    virtual int initializeExcel();

    // Passes buffers and zoom to the module and reads the size of the sheet and of its
    // headers, and the comment marks.
    void resizeDocument() override;
    // Centres the window on the view. Callers set mOffscreenDirty.
    void recenterDocument() override;
    // A sheet smaller than the screen stays at the top left.
    bool clampPosition(int& x, int& y) const override;
    bool clampPosition(int& x, int& y, int maxX, int maxY) const override;

    void handlePaint(unsigned int* frameBuffer) override;
    void handlePaintGesture(unsigned int* frameBuffer) override;
    int drawOffscreenBuffer() override;

    // Ignores a scale at which the sheet would be smaller than the screen.
    bool handleGestureChange(double scale, double unused) override;
    bool handleDoubleClick(int x, int y) override;
    bool handlePenDown(int x, int y) override;
    bool handlePenMove(int x, int y) override;
    bool handlePenUp(int x, int y) override;
    bool handleClick(int x, int y) override;
    // True if it has started a glide, or ignored the flick during a pinch.
    bool handleFlick(int vx, int vy) override;
    bool tick() override;
    // Centres the window and lays out the sheet at the end of a glide.
    void StopHandler();

    // Operations on the columns or rows that were last selected in a header. Before
    // the first selection, that is the first row.
    int clearSelection() override;
    void hideSelection();
    void unhideSelection();
    void unhideAll();
    // Sort the whole sheet by the selected column. Return the column's number from 0,
    // or -1 on failure.
    int sortAscending();
    int sortDescending();
    // Writes the selection's text to a regular file, which is created or overwritten,
    // and clears the selection. Reports failures on standard output or standard
    // error. Always returns 0.
    int copySelection(const char* path);
    // In resize mode, strokes on the headers move borders instead of selecting.
    void setResizeMode(bool on);
    // {"comment": ..., "xcoord": ..., "ycoord": ...} for the last tap on a cell, in view
    // pixels. Empty before the first tap.
    std::string GetLastClickComment() const { return mLastComment; }

    // {"list": [...]}, see view/DocumentList.h.
    std::string getSheetList();
    // Makes a sheet current and returns its number. Does not check the number: the
    // module refuses invalid ones. mSheetWidth and mSheetHeight are updated only at
    // the next layout.
    virtual int jumpToSheet(int sheet);
    int columnCount() const { return mColumnCount; }
    std::string getDocProperties() override;

    // Searches the current sheet. Returns {"resultcount": n}.
    std::string doSearch(const char* text) override;
    int nextResult() override;
    int previousResult() override;
    int stopFind() override;
    int drawCurrentResult(CpPixmap* frame) override;
    int ReinitSearchRects() override;

protected:
    static constexpr uint8_t SELECTION_COLOUR[3] = {0xFF, 0xF5, 0x68};
    static constexpr uint32_t CURRENT_HIT_COLOUR = 0x40FF0000;
    static constexpr uint32_t RESIZE_MODE_VEIL = 0x77555555;

    // The effect of the current stroke on a header.
    struct HeaderStroke {
        bool resizesColumn = false;
        bool resizesRow = false;
        bool selectsColumns = false;
        bool selectsRows = false;

        bool isAny() const { return resizesColumn || resizesRow || selectsColumns || selectsRows; }
    };

    bool isOpen() const { return mCells != nullptr; }

    // Geometry.
    // The width of the row headers and the height of the column headers.
    CpPoint corner() const;
    // The document pixel at a pixel of the screen.
    CpPoint documentPoint(const CpPoint& screenPoint) const;
    void getViewDocBounds(CpRect& r) const;
    void getOffscreenDocBounds(CpRect& r) const;
    // The size of the cells' surface for a view of this size.
    static CpPoint cellsSize(int width, int height);
    int layOut();
    void refreshCommentMarks();

    // Painting.
    void drawCommentMarks();
    void drawScreen(unsigned int* frameBuffer);
    // Draws the visible part of the window, with its headers. screenRect is its place
    // on the screen, sourceRect its place in the cells' surface.
    void drawScreenFragment(unsigned int* frameBuffer, const CpRect& screenRect, const CpRect& sourceRect);

    // Input.
    // True if the pen is on the headers of these tracks. `depth` multiplies the size of
    // the headers across the tracks.
    bool isOnHeaders(const TrackKind& tracks, const CpPoint& pen, int depth) const;
    // Begins a stroke if the pen is on the headers.
    void beginHeaderStroke(const CpPoint& pen);
    void beginStroke(const TrackKind& tracks, const CpPoint& pen, bool& resizes, bool& selects);
    // Stores the first document pixel and the length of the track at `place`.
    void trackAt(const TrackKind& tracks, int place, int& start, int& length) const;
    void drawGuide(const TrackKind& tracks, const CpPoint& pen, uint32_t colour);
    virtual void moveGuide(const TrackKind& tracks, const CpPoint& pen);
    void finishResize(const TrackKind& tracks, const CpPoint& pen);
    void finishScroll(const CpPoint& pen);
    bool isSelectingStroke(const TrackKind& tracks, const CpPoint& pen) const;
    // Select tracks; `from` and `to` are document pixels. Return the number of selected
    // tracks.
    int selectTracks(const TrackKind& tracks, int from, int to);
    int selectStroke(const TrackKind& tracks, const CpPoint& pen);
    bool selectTapped(const TrackKind& tracks, const CpPoint& tap, ClientMessageId notice);
    bool dropSelection();
    bool readComment(int lastx, int lasty);

    // Commands and search.
    void contentsChanged();
    void applyToSelection(decltype(TrackKind::hide) TrackKind::*operation);
    const TrackKind& selectedTracks() const;
    int sortSheet(decltype(STGFunc::stg_sort_ascending) sort);
    std::string selectedText();
    void fetchRegions();
    // Null if there is no current hit.
    const stg_region* currentRegion() const;
    // False if there is no current hit.
    bool centreOnCurrentRegion();
    int stepResult(int step);

    void* moduleDocument() const override { return mDocument; }
    std::vector<CpPixmap*> pictures() override;
    void releaseModuleMemory() override;

    STGFunc& mModule = Singleton<STGFunc>::Instance();
    void* mDocument = nullptr;
    std::unique_ptr<CpPixmap> mCells; // mDocPixmap points to it
    // The row headers are as high as mCells, the column headers as wide. Not null once
    // the document is open.
    std::unique_ptr<CpPixmap> mRowHeaders;
    std::unique_ptr<CpPixmap> mColumnHeaders;

    int mCurrentSheet = 0;
    int32_t mSheetCount = 0;
    int32_t mColumnCount = 0;
    int32_t mSheetWidth = 0; // at the current zoom
    int32_t mSheetHeight = 0;
    // The module owns these arrays.
    std::span<const stg_region> mCommentMarks;
    std::span<const stg_region> mFound;

    HeaderStroke mStroke;
    CpPoint mStrokePoint{0, 0}; // the pen's last position in the stroke, in view pixels
    CpPoint mAnchor{0, 0};      // a document pixel inside the column or row to resize
    bool mResizeMode = false;
    bool mSelectionActive = false; // a selection made in a header is shown
    // (first, 0, last, 0) for columns and (0, first, 0, last) for rows, in document
    // pixels.
    CpRect mSelection;
    std::string mLastComment;
};
