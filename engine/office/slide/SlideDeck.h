// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Opening.h"
#include "engine/office/Surface.h"
#include "engine/office/slide/DrawnText.h"

#include <com/sun/star/drawing/XDrawPage.hpp>
#include <com/sun/star/drawing/XGraphicExportFilter.hpp>

#include <cstdint>
#include <utility>
#include <vector>

namespace lectern::engine {

// An opened presentation and all of its slides, the hidden ones too, made ready
// to be looked at.
class SlideDeck {
public:
    SlideDeck(const Office::Private& office, LoadedModel loaded);

    const css::uno::Reference<css::frame::XModel>& model() const { return mLoaded.model; }
    int32_t count() const { return static_cast<int32_t>(mSlides.size()); }
    bool has(int32_t slide) const { return slide >= 0 && slide < count(); }
    const css::uno::Reference<css::drawing::XDrawPage>& slide(int32_t slide) const {
        return mSlides[static_cast<size_t>(slide)];
    }
    // In 1/100 mm, 1 at least.
    css::awt::Size size(int32_t slide) const;

    // Paints the slide over the whole surface.
    void paint(int32_t slide, const Surface& surface);
    // What is written on the slide, its master and its charts included; lengths
    // are those of size(). Takes milliseconds.
    DrawnText drawnText(int32_t slide);

private:
    using Page = css::uno::Reference<css::drawing::XDrawPage>;
    DrawnText record(const Page& page) const;
    const DrawnText& masterText(const Page& master);

    LoadedModel mLoaded;
    std::vector<Page> mSlides;
    std::vector<std::pair<Page, DrawnText>> mMasters; // that were recorded
    css::uno::Reference<css::drawing::XGraphicExportFilter> mExport;
};

} // namespace lectern::engine
