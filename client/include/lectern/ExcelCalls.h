// SPDX-License-Identifier: Apache-2.0
// The methods of the category "/excel", for spreadsheets. "The selection" is the
// columns or rows that the user selected by taps or drags in the headers. Bus.h
// describes the threads, the errors and the limits of a call. A document of another
// kind is an error of kind refused with the name "errWrongType".
#pragma once

#include <lectern/Bus.h>

#include <string>

#pragma GCC visibility push(default)

namespace lectern::excel {

// Returns the service's text, unchanged: the sheets' names, and which one is shown.
// The service does not escape names and cuts long lists, so the text may not be
// valid JSON. Use ListReply.h to read it.
Result<std::string> getSheetList(const Bus& bus, int docid, const CallLimits& limits = {});
// Shows a sheet, counted from 0, and returns its number. The service does not check
// the range: give the number of a sheet that exists.
Result<int> jumpToSheet(const Bus& bus, int docid, int sheet, const CallLimits& limits = {});
// Returns the number of columns of the shown sheet.
Result<int> getColumnCount(const Bus& bus, int docid, const CallLimits& limits = {});
// Returns a JSON object with "comment", the comment of the cell that was tapped last
// (empty if it has none), and "xcoord" and "ycoord", the point of the tap. Returns
// the empty text before the first tap.
Result<std::string> getLastComment(const Bus& bus, int docid, const CallLimits& limits = {});

// Sorts the shown sheet by the selected column. Returns that column, counted from 0,
// or -1 when the sheet could not be sorted. Files are never changed.
Result<int> sortAscending(const Bus& bus, int docid, const CallLimits& limits = {});
Result<int> sortDescending(const Bus& bus, int docid, const CallLimits& limits = {});
// on: drags in the headers resize columns and rows. Off, as at the start: they
// select.
Failure resizeMode(const Bus& bus, int docid, bool on, const CallLimits& limits = {});
// Hide the selected columns or rows, show the hidden ones among them, show all of
// the sheet.
Failure hideSelection(const Bus& bus, int docid, const CallLimits& limits = {});
Failure unhideSelection(const Bus& bus, int docid, const CallLimits& limits = {});
Failure unhideAll(const Bus& bus, int docid, const CallLimits& limits = {});
// Writes the selection's text into a file and clears the selection. path: absolute;
// the service creates the file or empties it first. The service does not report a
// failure to write.
Failure copySelection(const Bus& bus, int docid, const std::string& path, const CallLimits& limits = {});

} // namespace lectern::excel

#pragma GCC visibility pop
