// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "touch/TouchTypes.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// What the category "/touch" asks of a view. Every touch view has it besides its
// OfficeBase. Operations that a kind of document, or its module, does not have return
// TouchResult::NotSupported.
//
// Threads: as OfficeBase; the caller has not locked the view's mutex.
class TouchView {
public:
    // How the open can be given up and tells its progress.
    struct OpenWatch {
        int cancelDescriptor = -1;                 // becomes readable when the open is given up; -1: never
        std::function<void(int percent)> progress; // called by any thread; may be empty
    };

    virtual ~TouchView() = default;

    // Set it before the open.
    virtual void watchOpen(OpenWatch watch) = 0;

    // Calls no function of the module.
    virtual ViewPlace place() const = 0;
    // Moves the view to a document pixel, as far as the document reaches, and ends a glide.
    virtual void scrollTo(int x, int y) = 0;
    // The middle of the view.
    virtual CpPoint middle() const = 0;
    // Zooms about a point of the view, inside the limits of the zoom.
    virtual void zoomTo(double zoom, const CpPoint& about) = 0;
    // The client's frame has another size. The place in the document stays.
    virtual void resize(int width, int height) = 0;
    // The address of the link that was tapped last; empty before that.
    virtual std::string lastLink() const { return {}; }

    // Search begins at the first hit at or below the view's top.
    virtual TouchResult search(const char* text, const SearchOptions& options, HitPlace& hit);
    virtual TouchResult stepToHit(int step, HitPlace& hit);

    // Selects what is at a point, or moves an end of the selection to it.
    virtual TouchResult select(SelectUnit unit, const CpPoint& point);
    virtual TouchResult moveSelectionEnd(SelectEnd end, const CpPoint& point);
    virtual TouchResult selection(Selection& selection);
    // The text on the screen, in reading order.
    virtual TouchResult visibleText(std::vector<TextLine>& lines);

    virtual TouchResult outline(std::vector<OutlineEntry>& entries);
    // Goes to an entry of the outline.
    virtual TouchResult goTo(int entry);
    // A cell of the current sheet; the one that was tapped last if column and row are -1.
    virtual TouchResult cell(int column, int row, Cell& cell);
    // Writes the document's file in another format to a regular file, which is created or
    // emptied.
    virtual TouchResult exportTo(ExportFormat format, const char* path);
    // Paints a slide or page into width * height pixels 0xAARRGGBB, whole and centred.
    virtual TouchResult thumbnail(int part, uint32_t* pixels, int width, int height);
};
