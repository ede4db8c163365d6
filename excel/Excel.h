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
// A paint puts the screen together from three surfaces that the module renders
// at the same time: the cells, the row headers at the left edge and the column
// headers at the top. The headers stay at the edges while the cells scroll; the
// cell at mScroll is the one right beside them.
//
// The surface of the cells is larger than the screen. Its bounds are the window
// of the sheet that it shows, in document pixels. Scrolling copies from it, and
// it goes on showing the same window for as long as a glide lasts; it is moved
// about the view and rendered again when the glide comes to rest, with a new
// zoom, and when the contents change. Where it does not reach, a chequered
// ground that scrolls along is seen.
//
// A document that failed to open has no surfaces: every call is survived and
// asks the module nothing.
//
// None of the operations below takes mMutex but handlePaint, handleDoubleClick
// and those of the base that say so.
class Excel : public OfficeBase {
public:
    // Width and height in pixels, at least 1. A data store of 0 has one made,
    // after a word on standard output.
    Excel(int width, int height, int docId, unsigned int dataStoreId);
    ~Excel() override;

    void SaveStateToDataStore() override;
    void RestoreStateFromDataStore() override;
    int openFile(const char* path, const char* password) override;
    // Everything after the module has opened the file; 0, or the module's code
    // when it refuses the cells' surface. Then there is none, as before.
    int initializeExcel();

    // Tells the module buffers and zoom and takes over what it says of the sheet.
    void resizeDocument() override;
    // Moves the window of the cells about the view; the caller has it rendered.
    void recenterDocument() override;
    // Beyond the sheet there is nothing to see: a sheet smaller than the screen
    // stays at its top left.
    bool clampPosition(int& x, int& y) const override;
    bool clampPosition(int& x, int& y, int maxX, int maxY) const override;

    void handlePaint(unsigned int* frameBuffer) override;
    void handlePaintGesture(unsigned int* frameBuffer) override;
    int drawOffscreenBuffer() override;

    // A pinch cannot make the sheet smaller than the screen.
    bool handleGestureChange(double scale, double unused) override;
    bool handleDoubleClick(int x, int y) override;
    bool handlePenDown(int x, int y) override;
    bool handlePenMove(int x, int y) override;
    bool handlePenUp(int x, int y) override;
    bool handleClick(int x, int y) override;
    // True when it started a glide.
    bool handleFlick(int vx, int vy) override;
    bool tick() override;
    // What is to be done once the sheet has come to rest.
    void StopHandler();

    // The columns or rows selected in a header. Before any selection they are
    // the first row.
    int clearSelection() override;
    void hideSelection();
    void unhideSelection();
    void unhideAll();
    // Sorts the whole sheet by the selected column: its number from 0, or -1.
    int sortAscending();
    int sortDescending();
    // Writes the selection's text into a regular file, which is made or emptied;
    // what goes wrong is said on standard output or error. 0.
    int copySelection(const char* path);
    // In resize mode header strokes move borders instead of selecting.
    void setResizeMode(bool on);
    // {"comment": ..., "xcoord": ..., "ycoord": ...} of the last tap on a cell;
    // empty before the first one.
    std::string GetLastClickComment() const { return mLastComment; }

    // {"list": [...]}, cut after 128 bytes a sheet; titles are not escaped.
    std::string getSheetList();
    // Whatever the number; the module is the one to refuse it. The sheet's size
    // is taken over when the view comes to rest next.
    int jumpToSheet(int sheet);
    int columnCount() const { return mColumnCount; }
    std::string getDocProperties() override;

    // On the sheet shown. {"resultcount": n}
    std::string doSearch(const char* text) override;
    int nextResult() override;
    int previousResult() override;
    int stopFind() override;
    int drawCurrentResult(CpPixmap* frame) override;
    int ReinitSearchRects() override;

protected:
    // What the pen has been doing since it went down on a header.
    struct HeaderStroke {
        bool resizesColumn = false;
        bool resizesRow = false;
        bool selectsColumns = false;
        bool selectsRows = false;
    };

    bool isOpen() const { return mCells != nullptr; }

    // Geometry.
    // How wide the row headers and how high the column headers are.
    CpPoint corner() const;
    // The document pixel at a screen pixel beside the headers.
    CpPoint documentPoint(const CpPoint& screenPoint) const;
    void getViewDocBounds(CpRect& r) const;
    void getOffscreenDocBounds(CpRect& r) const;
    int layOut();
    void refreshCommentMarks();

    // Painting.
    void drawScreen(unsigned int* frameBuffer);
    // The part of the window that is seen, with its headers. screenRect is where
    // it is seen, sourceRect where it lies in the surface of the cells.
    void drawScreenFragment(unsigned int* frameBuffer, const CpRect& screenRect, const CpRect& sourceRect);

    // Input.
    // True on the headers of these tracks, as many times as deep as they are drawn.
    bool isOnHeaders(const TrackKind& tracks, const CpPoint& pen, int depth) const;
    void beginStroke(const TrackKind& tracks, const CpPoint& pen, bool& resizes, bool& selects);
    // Where the track at a place begins, and how long it is.
    void trackAt(const TrackKind& tracks, int place, int& start, int& length) const;
    void drawGuide(const TrackKind& tracks, const CpPoint& pen, uint32_t colour);
    void moveGuide(const TrackKind& tracks, const CpPoint& pen);
    void finishResize(const TrackKind& tracks, const CpPoint& pen);
    void finishScroll(const CpPoint& pen);
    bool isSelectingStroke(const TrackKind& tracks, const CpPoint& pen) const;
    // The number of tracks selected.
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
    // Null when there is no current hit.
    const stg_region* currentRegion() const;
    // False when there is none.
    bool centreOnCurrentRegion();
    int stepResult(int step);

    STGFunc& mModule = Singleton<STGFunc>::Instance();
    void* mDocument = nullptr;
    std::unique_ptr<CpPixmap> mCells; // what mDocPixmap is
    // As high as the cells, and as wide; there once the cells are.
    std::unique_ptr<CpPixmap> mRowHeaders;
    std::unique_ptr<CpPixmap> mColumnHeaders;

    int mCurrentSheet = 0;
    int32_t mSheetCount = 0;
    int32_t mColumnCount = 0;
    int32_t mSheetWidth = 0; // at the current zoom
    int32_t mSheetHeight = 0;
    // Arrays belong to the module.
    std::span<const stg_region> mCommentMarks;
    std::span<const stg_region> mFound;

    HeaderStroke mStroke;
    CpPoint mStrokePoint{0, 0}; // the pen's last place in the stroke, on the screen
    CpPoint mAnchor{0, 0};      // inside the column and the row being resized
    bool mResizeMode = false;
    bool mSelectionActive = false; // a header selection is shown
    // (first, 0, last, 0) for columns and (0, first, 0, last) for rows.
    CpRect mSelection;
    std::string mLastComment;
};
