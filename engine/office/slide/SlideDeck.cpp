// SPDX-License-Identifier: Apache-2.0
#include "engine/office/slide/SlideDeck.h"

#include "engine/office/slide/MetafileText.h"
#include "engine/office/slide/SlidePreparation.h"
#include "engine/office/slide/SlideShapes.h"

#include <com/sun/star/drawing/GraphicExportFilter.hpp>
#include <com/sun/star/drawing/XDrawPagesSupplier.hpp>
#include <com/sun/star/drawing/XMasterPageTarget.hpp>
#include <com/sun/star/io/XOutputStream.hpp>

#include <cppuhelper/implbase1.hxx>
#include <rtl/ref.hxx>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace lectern::engine {

using css::drawing::XDrawPage;
using css::uno::Reference;
using css::uno::Sequence;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

// Collects what the suite writes.
class Collected : public cppu::WeakImplHelper1<css::io::XOutputStream> {
public:
    void SAL_CALL writeBytes(const Sequence<sal_Int8>& data) override {
        const auto* const first = reinterpret_cast<const unsigned char*>(data.getConstArray());
        mBytes.insert(mBytes.end(), first, first + data.getLength());
    }
    void SAL_CALL flush() override {}
    void SAL_CALL closeOutput() override {}

    const std::vector<unsigned char>& bytes() const { return mBytes; }

private:
    std::vector<unsigned char> mBytes;
};

template<class Value>
css::beans::PropertyValue named(const char* name, const Value& value) {
    css::beans::PropertyValue property;
    property.Name = OUString::createFromAscii(name);
    property.Value <<= value;
    return property;
}

// The suite draws a grey frame around a slide, which its neighbours inside
// cover. `thickness` is in pixels.
void coverFrame(const Surface& surface, int32_t thickness) {
    if (std::min(surface.width, surface.height) <= 2 * thickness)
        return;
    for (int64_t y = thickness; y < surface.height - thickness; ++y) {
        uint32_t* const row = surface.row(y);
        uint32_t* const right = row + surface.width - thickness;
        std::fill(row, row + thickness, row[thickness]);
        std::fill(right, right + thickness, right[-1]);
    }
    const int64_t below = surface.height - thickness;
    for (int64_t y = 0; y < thickness; ++y) {
        std::copy_n(surface.row(thickness), surface.width, surface.row(y));
        std::copy_n(surface.row(below - 1), surface.width, surface.row(below + y));
    }
}

// The frame is a pixel wide, and smeared over two where the slide is painted out
// of its proportions.
int32_t frameThickness(const Surface& surface, const css::awt::Size& slide) {
    const double across = static_cast<double>(surface.width) / slide.Width;
    const double down = static_cast<double>(surface.height) / slide.Height;
    return std::abs(across / down - 1) < 0.02 ? 1 : 2;
}

// What a master page shows on its slides is there, but for the placeholders:
// those only tell where a slide has its own.
class PlaceholdersHidden {
public:
    explicit PlaceholdersHidden(const Reference<XDrawPage>& master) {
        visitShapes(master, [this](const Reference<css::drawing::XShape>& shape) {
            if (!placeholderOf(shape).isEmpty() && property<bool>(propertiesOf(shape), "Visible") &&
                setProperty(propertiesOf(shape), "Visible", false))
                mHidden.push_back(shape);
            return true;
        });
    }
    ~PlaceholdersHidden() {
        for (const auto& shape : mHidden)
            setProperty(propertiesOf(shape), "Visible", true);
    }
    PlaceholdersHidden(const PlaceholdersHidden&) = delete;
    PlaceholdersHidden& operator=(const PlaceholdersHidden&) = delete;

private:
    std::vector<Reference<css::drawing::XShape>> mHidden;
};

} // namespace

SlideDeck::SlideDeck(const Office::Private& office, LoadedModel loaded)
    : mLoaded(std::move(loaded)), mExport(css::drawing::GraphicExportFilter::create(office.context)) {
    const Reference<css::drawing::XDrawPagesSupplier> supplier(mLoaded.model, UNO_QUERY_THROW);
    const auto pages = supplier->getDrawPages();
    for (sal_Int32 i = 0; i < pages->getCount(); ++i) {
        mSlides.emplace_back(pages->getByIndex(i), UNO_QUERY_THROW);
        prepareSlide(mLoaded.model, mSlides.back());
    }
    mLoaded.painter->initializeForRendering("{}");
}

css::awt::Size SlideDeck::size(int32_t index) const {
    const auto properties = propertiesOf(slide(index));
    return {std::max<sal_Int32>(property<sal_Int32>(properties, "Width"), 1),
            std::max<sal_Int32>(property<sal_Int32>(properties, "Height"), 1)};
}

void SlideDeck::paint(int32_t index, const Surface& surface) {
    const css::awt::Size whole = size(index);
    mLoaded.painter->setPart(index);
    mLoaded.painter->paintTile(reinterpret_cast<unsigned char*>(surface.pixels), surface.width,
                               surface.height, 0, 0,
                               std::max(static_cast<int>(twipsFromHundredthMm(whole.Width)), 1),
                               std::max(static_cast<int>(twipsFromHundredthMm(whole.Height)), 1));
    coverFrame(surface, frameThickness(surface, whole));
}

DrawnText SlideDeck::drawnText(int32_t index) {
    DrawnText text = record(slide(index));
    const Reference<css::drawing::XMasterPageTarget> target(slide(index), UNO_QUERY);
    const bool showsMaster = property<bool>(propertiesOf(slide(index)), "IsBackgroundObjectsVisible", true);
    if (target.is() && showsMaster && target->getMasterPage().is())
        text.append(masterText(target->getMasterPage()));
    return text;
}

const DrawnText& SlideDeck::masterText(const Page& master) {
    for (const auto& [page, text] : mMasters) {
        if (page == master)
            return text;
    }
    const PlaceholdersHidden hidden(master);
    return mMasters.emplace_back(master, record(master)).second;
}

DrawnText SlideDeck::record(const Page& page) const {
    mExport->setSourceDocument(Reference<css::lang::XComponent>(page, UNO_QUERY_THROW));
    const rtl::Reference<Collected> metafile(new Collected);
    const css::beans::PropertyValue how[] = {
        named("FilterName", OUString("SVM")),
        named("OutputStream", Reference<css::io::XOutputStream>(metafile.get()))};
    return mExport->filter({how, static_cast<sal_Int32>(std::size(how))})
               ? readMetafileText(metafile->bytes())
               : DrawnText();
}

} // namespace lectern::engine
