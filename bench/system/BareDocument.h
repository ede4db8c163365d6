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

// A document in the office suite with the settings of Lectern's engine, but without any
// of its other code. Baselines measure this.
class Document {
public:
    // Starts the suite with a profile folder and reads a file into it. Such a document
    // can only be asked for its times. Null if either fails.
    static std::unique_ptr<Document> read(const std::string& file, const std::string& profile);
    // The same, and prepares the document for the other functions.
    static std::unique_ptr<Document> load(const std::string& file, const std::string& profile);

    // Lays the text out on one giant page of this width in pixels. This is the least
    // work that a reflow can be: no index, no fitting and no second pass.
    void reflow(int width, int dpi);
    // Paints the pixel rows [top, top + height) of that page.
    void paint(int top, int width, int height, int dpi);
    // Paints the document's top left corner of twipsWide * twipsHigh twips into
    // width * height pixels.
    void paintTwips(int width, int height, int twipsWide, int twipsHigh);

    const css::uno::Reference<css::frame::XModel>& model() const { return mModel; }
    lok::Document& painter() { return *mPainter; }
    double startTime() const { return mStarted; } // milliseconds to start the suite
    double loadTime() const { return mLoaded; }

private:
    std::unique_ptr<lok::Office> mOffice;
    std::unique_ptr<lok::Document> mPainter;
    css::uno::Reference<css::frame::XModel> mModel;
    std::vector<unsigned char> mPixels;
    double mStarted = 0;
    double mLoaded = 0;
};

// Runs `measure` with a new folder for the suite's profile and temporary files, removes
// the folder and ends the process with the result. Does not shut the suite down: that
// is not part of any figure and not reliable.
[[noreturn]] void run(int (*measure)(char** argv, const std::string& profile), char** argv);

} // namespace bare
