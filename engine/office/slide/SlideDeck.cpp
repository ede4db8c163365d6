// SPDX-License-Identifier: Apache-2.0
#include "engine/office/slide/SlideDeck.h"

#include "engine/layout/MetafileText.h"
#include "engine/office/slide/AxialGradients.h"
#include "engine/office/slide/SlideFile.h"
#include "engine/office/slide/SlidePreparation.h"

#include <com/sun/star/drawing/GraphicExportFilter.hpp>
#include <com/sun/star/drawing/XDrawPagesSupplier.hpp>
#include <com/sun/star/drawing/XMasterPagesSupplier.hpp>
#include <com/sun/star/io/XOutputStream.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/presentation/XPresentationPage.hpp>
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
using css::uno::UNO_QUERY_THROW;

namespace {

// An output stream that collects the bytes that the suite writes.
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

// Removes the grey frame that the suite draws around a slide: its pixels are
// replaced by their neighbours inside. `thickness` is in pixels.
void coverFrame(const Surface& surface, int32_t thickness) {
    if (std::min(surface.width, surface.height) <= 2 * thickness) {
        return;
    }
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

std::vector<Reference<XDrawPage>> pagesOf(const Reference<css::drawing::XDrawPages>& list) {
    std::vector<Reference<XDrawPage>> pages;
    pages.reserve(static_cast<size_t>(list->getCount()));
    for (sal_Int32 i = 0; i < list->getCount(); ++i) {
        pages.emplace_back(list->getByIndex(i), UNO_QUERY_THROW);
    }
    return pages;
}

// Leaves the view of the master pages, which a file keeps when it was saved
// there: the painter would show a master page instead of every slide.
void leaveMasterPages(const Reference<css::frame::XModel>& model) {
    setProperty(propertiesOf(model->getCurrentController()), "IsMasterPageMode", false);
}

void hideMaster(const Reference<XDrawPage>& slide) {
    for (const char* part : {"IsBackgroundVisible", "IsBackgroundObjectsVisible"}) {
        setProperty(propertiesOf(slide), part, false);
    }
}

// Thickness of the frame in pixels: 1, but 2 where the slide is painted out of
// proportion.
int32_t frameThickness(const Surface& surface, const css::awt::Size& slide) {
    const double across = static_cast<double>(surface.width) / slide.Width;
    const double down = static_cast<double>(surface.height) / slide.Height;
    return std::abs(across / down - 1) < 0.02 ? 1 : 2;
}

// Adds a shape to the notes page that draws the whole slide: its own shapes and
// those of the master page that it shows, such as title and footers. No slide
// shows the notes page.
Reference<css::drawing::XShape> makePreview(const Reference<css::frame::XModel>& model,
                                            const Reference<XDrawPage>& slide) {
    const Reference<css::lang::XMultiServiceFactory> factory(model, UNO_QUERY_THROW);
    const Reference<css::drawing::XShape> preview(factory->createInstance("com.sun.star.drawing.PageShape"),
                                                  UNO_QUERY_THROW);
    const Reference<css::presentation::XPresentationPage> owner(slide, UNO_QUERY_THROW);
    const Reference<css::drawing::XShapes> notes(owner->getNotesPage(), UNO_QUERY_THROW);
    notes->add(preview);
    return preview;
}

} // namespace

SlideDeck::SlideDeck(const Office::Private& office, const std::string& path, LoadedModel loaded)
    : mLoaded(std::move(loaded)), mExport(css::drawing::GraphicExportFilter::create(office.context)) {
    const Reference<css::drawing::XDrawPagesSupplier> slides(mLoaded.model, UNO_QUERY_THROW);
    mPages = pagesOf(slides->getDrawPages());
    for (const auto& page : mPages) {
        prepareSlide(mLoaded.model, page);
        smoothAxialGradients(office.context, page);
    }
    const Reference<css::drawing::XMasterPagesSupplier> masters(mLoaded.model, UNO_QUERY_THROW);
    for (const auto& master : pagesOf(masters->getMasterPages())) {
        smoothAxialGradients(office.context, master);
    }
    const bool isPlaceholder =
        mPages.size() == 1 && slide(0)->getCount() == 0 && isWithoutSlides(office.context, path);
    mCount = isPlaceholder ? 0 : static_cast<int32_t>(mPages.size());
    if (isPlaceholder) {
        hideMaster(slide(0));
    }
    mLoaded.painter->initializeForRendering("{}");
    leaveMasterPages(mLoaded.model);
}

css::awt::Size SlideDeck::size(int32_t index) const {
    const auto properties = propertiesOf(slide(index));
    return {std::max<sal_Int32>(property<sal_Int32>(properties, "Width"), 1),
            std::max<sal_Int32>(property<sal_Int32>(properties, "Height"), 1)};
}

void SlideDeck::paint(int32_t index, const Surface& surface) {
    const css::awt::Size whole = size(index);
    preparePaint(index);
    mLoaded.painter->paintTile(reinterpret_cast<unsigned char*>(surface.pixels), surface.width,
                               surface.height, 0, 0,
                               std::max(static_cast<int>(twipsFromHundredthMm(whole.Width)), 1),
                               std::max(static_cast<int>(twipsFromHundredthMm(whole.Height)), 1));
    coverFrame(surface, frameThickness(surface, whole));
}

// An exported slide lacks its master page; its preview shape includes it.
DrawnText SlideDeck::drawnText(int32_t index) {
    if (!mPreview.is()) {
        mPreview = makePreview(mLoaded.model, slide(0));
    }
    const css::awt::Size whole = size(index);
    if (const css::awt::Size now = mPreview->getSize();
        now.Width != whole.Width || now.Height != whole.Height) {
        mPreview->setSize(whole);
    }
    setProperty(propertiesOf(mPreview), "PageNumber", sal_Int32{index + 1});
    mExport->setSourceDocument(Reference<css::lang::XComponent>(mPreview, UNO_QUERY_THROW));
    const rtl::Reference<Collected> metafile(new Collected);
    const css::beans::PropertyValue how[] = {
        named("FilterName", OUString("SVM")),
        named("OutputStream", Reference<css::io::XOutputStream>(metafile.get()))};
    return mExport->filter({how, static_cast<sal_Int32>(std::size(how))})
               ? readMetafileText(metafile->bytes())
               : DrawnText();
}

} // namespace lectern::engine
