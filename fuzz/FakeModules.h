// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/fakes/sheet/FakeSheetModule.h"
#include "tests/fakes/slides/FakeSlideModule.h"
#include "tests/fakes/word/FakeWordModule.h"

// Returns the fake modules to their first state, in which they do not record calls.
inline void resetFakeModules() {
    fakeWord().reset();
    fakeWord().recording = false;
    fakeSheet().reset();
    fakeSheet().recording = false;
    fakeSlides().reset();
    fakeSlides().recording = false;
}
