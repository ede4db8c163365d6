// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/system/support/Decks.h"
#include "tests/system/support/ServiceFixture.h"

#include <vector>

// An area of a picture; empty when right is not above left.
struct Area {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool isEmpty() const { return right <= left; }
};

// The colours that a document shows, 0xRRGGBB; the last pixel, which holds the
// status byte, counts as black.
using Shown = std::vector<uint32_t>;

// Presentations through the service.
class SlidesTest : public ServiceTest {
protected:
    static Shown shown(const TestDocument& document);
    // The smallest area around what differs.
    static Area difference(const Shown& a, const Shown& b, int width);
    // The part of a picture that is not black, as the view is around a slide.
    static bool isBlack(const Shown& picture);

    // Jumps, and gives the slide that the reply names.
    static int jump(TestDocument& document, int slide);
    static int slideCount(TestDocument& document);
    static std::string slideList(TestDocument& document);
    // The note of the slide shown; empty when there is none.
    static std::string note(TestDocument& document);
    static void search(TestDocument& document, const std::string& text);
    static void next(TestDocument& document) { document.call("/common", "nextResult"); }
    static void previous(TestDocument& document) { document.call("/common", "previousResult"); }

    // The latest slide that the service has told of since the last call of a
    // method; -1 when it has told of none.
    int slideTold(const TestDocument& document) const;
    // Bytes that the service and the oldest engine have written for themselves.
    // Engines made ready for documents to come do not count, nor do pages of
    // files, which are whoever's maps them.
    size_t privateMemory() const;
};
