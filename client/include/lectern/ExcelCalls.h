// SPDX-License-Identifier: Apache-2.0
// The methods of the category "/excel": spreadsheets. What works on the
// selection works on the columns or rows that taps and drags have selected.
#pragma once

#include <lectern/Bus.h>

#include <string>

#pragma GCC visibility push(default)

namespace lectern::excel {

// The service's text, unchanged: names and which one is shown. Names are not
// escaped and a long list is cut, so it need not be JSON: ListReply.h reads it.
Result<std::string> getSheetList(const Bus& bus, int docid, const CallLimits& limits = {});
// Shows a sheet, counted from 0, and gives it back. The service checks no range.
Result<int> jumpToSheet(const Bus& bus, int docid, int sheet, const CallLimits& limits = {});
// Columns of the sheet shown.
Result<int> getColumnCount(const Bus& bus, int docid, const CallLimits& limits = {});
// JSON text with "comment", the comment of the cell tapped last, empty for
// none, and the place of the tap. Empty before the first tap.
Result<std::string> getLastComment(const Bus& bus, int docid, const CallLimits& limits = {});

// Sorts the sheet by the selected column and gives that column, or -1 when it
// could not be sorted.
Result<int> sortAscending(const Bus& bus, int docid, const CallLimits& limits = {});
Result<int> sortDescending(const Bus& bus, int docid, const CallLimits& limits = {});
// Whether drags over the headers resize columns and rows, or select them.
Failure resizeMode(const Bus& bus, int docid, bool on, const CallLimits& limits = {});
Failure hideSelection(const Bus& bus, int docid, const CallLimits& limits = {});
Failure unhideSelection(const Bus& bus, int docid, const CallLimits& limits = {});
Failure unhideAll(const Bus& bus, int docid, const CallLimits& limits = {});
// Writes the selection's text into a file, made or replaced, and ends the
// selection. path: absolute. Answered in the same way when it cannot be written.
Failure copySelection(const Bus& bus, int docid, const std::string& path, const CallLimits& limits = {});

} // namespace lectern::excel

#pragma GCC visibility pop
