// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

// Presentations for tests. Generated files are removed when the process ends.

// The description of a slide from read_slides.py.
struct WrittenSlide {
    std::string title;
    std::string note;
    std::string text; // paragraphs, separated by '|'
};
std::vector<WrittenSlide> readSlides(const std::string& path);

std::string slideSample(const std::string& name);
// Made by make_long_pptx.py once per run.
std::string longSlides(int count, int shapes = 0);
// A file with these bytes.
std::string slideFile(const std::string& name, const std::string& bytes);
// Files in the old format, derived from the stored one: one whose list of
// slides is empty, and one marked as encrypted, which the suite cannot save.
std::string oldSlidesWithNone();
std::string oldSlidesEncrypted();
// The stored file in the old format, saved while the view of this number was
// shown: 2 is that of the master.
std::string oldSlidesSavedInView(char view);
// One slide with a sound, saved by the office suite in the old format.
std::string oldSlidesWithSound();
// Runs a line of Python with the samples' folder on its path; OUT in it stands
// for the file whose path is returned.
std::string madeSlides(const std::string& name, const std::string& python);
