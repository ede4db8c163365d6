// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gio/gio.h>

#include <string>

namespace lectern::viewer {

// The name of a file as people see it.
std::string nameOf(GFile* file);
// The folder of a file, with ~ for the home folder.
std::string folderOf(GFile* file);
// When something was, as seen from now: "14:05" today, "Yesterday", or a date.
std::string whenText(GDateTime* then, GDateTime* now);

// Why a document did not open, and advice to its reader.
struct Problem {
    std::string title;
    std::string advice;
};
Problem problemOf(const GError& error);
// True for an error that a password heals.
bool asksForPassword(const GError& error);

} // namespace lectern::viewer
