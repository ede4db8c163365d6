// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

// Presentations for tests. Those that are made go with the process.

// What read_slides.py tells of a slide.
struct WrittenSlide {
    std::string title;
    std::string note;
    std::string text; // paragraphs, separated by '|'
};
std::vector<WrittenSlide> readSlides(const std::string& path);

std::string slideSample(const std::string& name);
// Of make_long_pptx.py, made once for a run.
std::string longSlides(int count, int shapes = 0);
// A file with these bytes.
std::string slideFile(const std::string& name, const std::string& bytes);
// Files of the old format, made of the stored one: with no slide in the list of
// them, and as one that is encrypted, which the suite cannot save.
std::string oldSlidesWithNone();
std::string oldSlidesEncrypted();
// One slide with a sound, in the old format as the office suite saves it.
std::string oldSlidesWithSound();
// Runs a line of Python with the samples' folder on its path; OUT in it is the
// file whose path comes back.
std::string madeSlides(const std::string& name, const std::string& python);
