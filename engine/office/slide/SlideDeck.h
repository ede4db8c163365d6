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

// An opened presentation and all slides that its file has, the hidden ones too,
// made ready to be looked at.
class SlideDeck {
public:
    SlideDeck(const Office::Private& office, const std::string& path, LoadedModel loaded);

    const css::uno::Reference<css::frame::XModel>& model() const { return mLoaded.model; }
    int32_t count() const { return static_cast<int32_t>(mSlides.size()); }
    bool has(int32_t slide) const { return slide >= 0 && slide < count(); }
    const css::uno::Reference<css::drawing::XDrawPage>& slide(int32_t slide) const {
        return mSlides[static_cast<size_t>(slide)];
    }
    // In 1/100 mm, 1 at least.
    css::awt::Size size(int32_t slide) const;

    // Does the part of a slide's paint that needs no surface, so that the next
    // paint of it is quicker: half of it, where a slide is seen for the first time.
    void preparePaint(int32_t slide) { mLoaded.painter->setPart(slide); }
    // Paints the slide over the whole surface.
    void paint(int32_t slide, const Surface& surface);
    // What is written on the slide, its master's words, footers and charts
    // included; lengths are those of size(). Takes milliseconds.
    DrawnText drawnText(int32_t slide);

private:
    LoadedModel mLoaded;
    std::vector<css::uno::Reference<css::drawing::XDrawPage>> mSlides;
    css::uno::Reference<css::drawing::XShape> mPreview; // made by the first search
    css::uno::Reference<css::drawing::XGraphicExportFilter> mExport;
};

} // namespace lectern::engine
