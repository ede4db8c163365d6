// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <LibreOfficeKit/LibreOfficeKit.hxx>
#include <com/sun/star/frame/XModel.hpp>

namespace css = com::sun::star;

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace bare {

double milliseconds();

// A document in the office suite with the engine's settings, and nothing else of
// ours: what baselines measure.
class Document {
public:
    // Null when the suite does not start, or the file does not load.
    static std::unique_ptr<Document> load(const std::string& file, const std::string& profile);

    // One giant page of a width in pixels: no index, no fitting, no second
    // pass, the least a reflow can cost.
    void reflow(int width, int dpi);
    // Paints rows [top, top + height) of that page.
    void paint(int top, int width, int height, int dpi);
    // Paints the document's top left corner, so many twips of it.
    void paintTwips(int width, int height, int twipsWide, int twipsHigh);

    const css::uno::Reference<css::frame::XModel>& model() const { return mModel; }
    lok::Document& painter() { return *mPainter; }
    double startTime() const { return mStarted; } // milliseconds that the suite's start took
    double loadTime() const { return mLoaded; }

private:
    std::unique_ptr<lok::Office> mOffice;
    std::unique_ptr<lok::Document> mPainter;
    css::uno::Reference<css::frame::XModel> mModel;
    std::vector<unsigned char> mPixels;
    double mStarted = 0;
    double mLoaded = 0;
};

// Runs measure with a folder for the suite's profile and temporary files, and
// ends the process with its result. Taking the suite down is no part of any
// figure, and not reliable.
[[noreturn]] void run(int (*measure)(char** argv, const std::string& profile), char** argv);

} // namespace bare
