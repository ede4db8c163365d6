// SPDX-License-Identifier: Apache-2.0
// The methods of the category "/excel", for spreadsheets. "The selection" is the
// columns or rows that the user selected by taps or drags in the headers. Document::ask
// makes the calls that these functions return; it describes the threads, the errors and
// the limits. A document of another kind is an error of kind refused with the name
// "errWrongType".
#pragma once

#include <lectern/Call.h>

#include <string>

#pragma GCC visibility push(default)

namespace lectern::excel {

// Returns the service's text, unchanged: the sheets' names, and which one is shown.
// The service does not escape names and cuts long lists, so the text may not be
// valid JSON. Use ListReply.h to read it.
Call<std::string> getSheetList();
// Shows a sheet, counted from 0, and returns its number. The service does not check
// the range: give the number of a sheet that exists.
Call<int> jumpToSheet(int sheet);
// Returns the number of columns of the shown sheet.
Call<int> getColumnCount();
// Returns a JSON object with "comment", the comment of the cell that was tapped last
// (empty if it has none), and "xcoord" and "ycoord", the point of the tap. Returns
// the empty text before the first tap.
Call<std::string> getLastComment();

// Sorts the shown sheet by the selected column. Returns that column, counted from 0,
// or -1 when the sheet could not be sorted. Files are never changed.
Call<int> sortAscending();
Call<int> sortDescending();
// on: drags in the headers resize columns and rows. Off, as at the start: they
// select.
Call<void> resizeMode(bool on);
// Hide the selected columns or rows, show the hidden ones among them, show all of
// the sheet.
Call<void> hideSelection();
Call<void> unhideSelection();
Call<void> unhideAll();
// Writes the selection's text into a file and clears the selection. path: absolute;
// the service creates the file or empties it first. The service does not report a
// failure to write.
Call<void> copySelection(const std::string& path);

} // namespace lectern::excel

#pragma GCC visibility pop
