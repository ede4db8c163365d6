// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/DrawnText.h"
#include "engine/layout/Surface.h"
#include "engine/office/DocumentLoading.h"

#include <com/sun/star/drawing/XDrawPage.hpp>
#include <com/sun/star/drawing/XGraphicExportFilter.hpp>
#include <com/sun/star/drawing/XShape.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace lectern::engine {

// An opened presentation and all slides of its file, hidden ones included,
// prepared for viewing. A file without slides has a white page in place of
// slide 0.
class SlideDeck {
public:
    SlideDeck(const Office::Private& office, const std::string& path, LoadedModel loaded);

    const css::uno::Reference<css::frame::XModel>& model() const { return mLoaded.model; }
    // Number of slides in the file.
    int32_t count() const { return mCount; }
    // Whether the slide can be shown.
    bool has(int32_t slide) const { return slide >= 0 && slide < static_cast<int32_t>(mPages.size()); }
    const css::uno::Reference<css::drawing::XDrawPage>& slide(int32_t slide) const {
        return mPages[static_cast<size_t>(slide)];
    }
    // Width and height in 1/100 mm, each at least 1.
    css::awt::Size size(int32_t slide) const;

    // Does the part of painting a slide that needs no surface, so that its next
    // paint is faster: by half when the slide is painted for the first time.
    void preparePaint(int32_t slide) { mLoaded.painter->setPart(slide); }
    // Paints the slide over the whole surface.
    void paint(int32_t slide, const Surface& surface);
    // Text drawn on the slide, including the master page, footers and charts;
    // lengths are in 1/100 mm, as in size(). Takes milliseconds.
    DrawnText drawnText(int32_t slide);

private:
    LoadedModel mLoaded;
    std::vector<css::uno::Reference<css::drawing::XDrawPage>> mPages;
    int32_t mCount = 0;
    css::uno::Reference<css::drawing::XShape> mPreview; // created by the first search
    css::uno::Reference<css::drawing::XGraphicExportFilter> mExport;
};

} // namespace lectern::engine
