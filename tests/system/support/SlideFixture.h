// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/system/support/Decks.h"
#include "tests/system/support/ServiceFixture.h"

#include <vector>

// An area of a picture; empty unless right > left.
struct Area {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool isEmpty() const { return right <= left; }
};

// The colours that a document shows, 0xRRGGBB. The last pixel contains the
// status byte and counts as black.
using Shown = std::vector<uint32_t>;

// Tests of presentations through the service.
class SlidesTest : public ServiceTest {
protected:
    static Shown shown(const TestDocument& document);
    // The smallest area that contains all differences.
    static Area difference(const Shown& a, const Shown& b, int width);
    // Whether a picture is black, as a view is around a slide.
    static bool isBlack(const Shown& picture);

    // Jumps to a slide and returns the slide named in the reply.
    static int jump(TestDocument& document, int slide);
    static int slideCount(TestDocument& document);
    static std::string slideList(TestDocument& document);
    // The note of the current slide; empty when it has none.
    static std::string note(TestDocument& document);
    static void search(TestDocument& document, const std::string& text);
    static void next(TestDocument& document) { document.call("/common", "nextResult"); }
    static void previous(TestDocument& document) { document.call("/common", "previousResult"); }

    // The slide of the latest notification since the last method call; -1 without one.
    int slideTold(const TestDocument& document) const;
    // Private memory in bytes of the service and the oldest engine, without
    // pages of mapped files.
    size_t privateMemory() const;
};
