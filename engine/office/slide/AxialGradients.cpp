// SPDX-License-Identifier: Apache-2.0
#include "engine/office/slide/AxialGradients.h"

#include "engine/office/slide/SlideShapes.h"

#include <com/sun/star/awt/Gradient.hpp>
#include <com/sun/star/awt/XBitmap.hpp>
#include <com/sun/star/drawing/BitmapMode.hpp>
#include <com/sun/star/drawing/FillStyle.hpp>
#include <com/sun/star/graphic/GraphicProvider.hpp>
#include <com/sun/star/io/SequenceInputStream.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string>

namespace lectern::engine {

using css::beans::XPropertySet;
using css::drawing::XShape;
using css::uno::Reference;
using css::uno::UNO_QUERY;

namespace {

// Pixels of the longer side of a picture. A painter enlarges a gradient smoothly,
// and a deck may have hundreds of them.
constexpr int LONGER_SIDE = 256;

using Rgb = std::array<double, 3>;

Rgb partsOf(sal_Int32 colour, sal_Int16 intensity) {
    const auto part = [&](int shift) { return (colour >> shift & 0xFF) * intensity / 100.0; };
    return {part(16), part(8), part(0)};
}

// The colours of an axial gradient on an area: the end colour at the edges, the
// start colour along an axis through the area's middle.
class Axial {
public:
    Axial(const css::awt::Gradient& gradient, double width, double height)
        : mEdge(partsOf(gradient.EndColor, gradient.EndIntensity)),
          mMiddle(partsOf(gradient.StartColor, gradient.StartIntensity)), mCentreX(width / 2),
          mCentreY(height / 2) {
        constexpr double TENTHS_OF_A_DEGREE = std::numbers::pi / 1800;
        const double angle = gradient.Angle * TENTHS_OF_A_DEGREE;
        mAcross = std::sin(angle);
        mDown = std::cos(angle);
        const double border = std::clamp<double>(gradient.Border, 0, 99) / 100;
        mReach = (std::abs(mAcross) * width + std::abs(mDown) * height) / 2 * (1 - border);
    }
    Rgb at(double x, double y) const {
        const double distance = std::abs((x - mCentreX) * mAcross + (y - mCentreY) * mDown);
        const double share = std::min(distance / mReach, 1.0);
        Rgb mixed;
        for (size_t i = 0; i < mixed.size(); ++i) {
            mixed[i] = mMiddle[i] + (mEdge[i] - mMiddle[i]) * share;
        }
        return mixed;
    }

private:
    Rgb mEdge;
    Rgb mMiddle;
    double mCentreX;
    double mCentreY;
    double mAcross = 0; // the direction away from the axis
    double mDown = 0;
    double mReach = 1; // distance from the axis to the edges
};

// The gradient as a file in the "portable pixmap" format.
std::string pictureFile(const css::awt::Gradient& gradient, const css::awt::Size& size) {
    const double scale = static_cast<double>(LONGER_SIDE) / std::max(size.Width, size.Height);
    const int width = std::max(static_cast<int>(std::lround(size.Width * scale)), 1);
    const int height = std::max(static_cast<int>(std::lround(size.Height * scale)), 1);
    const Axial colours(gradient, width, height);
    std::string file = "P6\n" + std::to_string(width) + " " + std::to_string(height) + "\n255\n";
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            for (const double part : colours.at(x + 0.5, y + 0.5)) {
                file += static_cast<char>(std::lround(part));
            }
        }
    }
    return file;
}

Reference<css::awt::XBitmap> bitmapOf(const Reference<css::uno::XComponentContext>& context,
                                      const std::string& file) {
    const css::uno::Sequence<sal_Int8> bytes(reinterpret_cast<const sal_Int8*>(file.data()),
                                             static_cast<sal_Int32>(file.size()));
    css::beans::PropertyValue source;
    source.Name = "InputStream";
    source.Value <<= Reference<css::io::XInputStream>(
        css::io::SequenceInputStream::createStreamFromSequence(context, bytes), UNO_QUERY);
    return {css::graphic::GraphicProvider::create(context)->queryGraphic({&source, 1}), UNO_QUERY};
}

// Returns whether the fill was changed. `size` is that of the filled area.
bool smoothFill(const Reference<css::uno::XComponentContext>& context, const Reference<XPropertySet>& filled,
                const css::awt::Size& size) {
    using css::drawing::FillStyle;
    const auto gradient = property<css::awt::Gradient>(filled, "FillGradient");
    if (size.Width < 1 || size.Height < 1 || gradient.Style != css::awt::GradientStyle_AXIAL ||
        property<FillStyle>(filled, "FillStyle") != css::drawing::FillStyle_GRADIENT ||
        property<sal_Int16>(filled, "FillStepCount") != 0) { // stripes on purpose
        return false;
    }
    const auto bitmap = bitmapOf(context, pictureFile(gradient, size));
    return bitmap.is() && setProperty(filled, "FillBitmap", bitmap) &&
           setProperty(filled, "FillBitmapMode", css::drawing::BitmapMode_STRETCH) &&
           setProperty(filled, "FillStyle", css::drawing::FillStyle_BITMAP);
}

} // namespace

void smoothAxialGradients(const Reference<css::uno::XComponentContext>& context,
                          const Reference<css::drawing::XDrawPage>& page) {
    const Reference<XPropertySet> properties = propertiesOf(page);
    const auto background = property<Reference<XPropertySet>>(properties, "Background");
    const css::awt::Size whole{property<sal_Int32>(properties, "Width"),
                               property<sal_Int32>(properties, "Height")};
    if (background.is() && smoothFill(context, background, whole)) {
        setProperty(properties, "Background", background);
    }
    visitShapes(page, [&](const Reference<XShape>& shape) {
        smoothFill(context, propertiesOf(shape), shape->getSize());
        return true;
    });
}

} // namespace lectern::engine
