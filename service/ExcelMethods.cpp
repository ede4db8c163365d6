// SPDX-License-Identifier: Apache-2.0
// The category "/excel": methods for spreadsheets only.
#include "excel/Excel.h"
#include "service/DocumentMethod.h"
#include "service/MethodTables.h"

template<>
inline constexpr const char* WRONG_KIND<Excel> = "Not an Excel document";

namespace {

constexpr char CURRENT_SHEET[] = "cursheet";
constexpr char COLUMN_COUNT[] = "columncnt";
constexpr char COLUMN[] = "column";

} // namespace

// Hiding, unhiding and copying have no Invalidate step, because the view requests
// the paint itself.
// clang-format off
const HubMethod excelMethods[] = {
    {"copySelection",   method<Excel, CopyTarget, Call<&Excel::copySelection>, ReplyDone>, 0},
    {"getSheetList",    method<Excel, Docid, ReplyText<&Excel::getSheetList>>, 0},
    {"jumpToSheet",     method<Excel, SheetNumber, ReplyNumber<CURRENT_SHEET, &Excel::jumpToSheet>, Invalidate>, 0},
    {"getLastComment",  method<Excel, Docid, ReplyText<&Excel::GetLastClickComment>>, 0},
    {"getColumnCount",  method<Excel, Docid, ReplyNumber<COLUMN_COUNT, &Excel::columnCount>>, 0},
    {"sortAscending",   method<Excel, Docid, ReplyNumber<COLUMN, &Excel::sortAscending>, Invalidate>, 0},
    {"sortDescending",  method<Excel, Docid, ReplyNumber<COLUMN, &Excel::sortDescending>, Invalidate>, 0},
    {"resizeMode",      method<Excel, Mode, Call<&Excel::setResizeMode>, ReplyDone>, 0},
    {"hideSelection",   method<Excel, Docid, CallLocked<&Excel::hideSelection>, ReplyDone>, 0},
    {"unhideSelection", method<Excel, Docid, CallLocked<&Excel::unhideSelection>, ReplyDone>, 0},
    {"unhideAll",       method<Excel, Docid, CallLocked<&Excel::unhideAll>, ReplyDone>, 0},
    {nullptr, nullptr, 0},
};
// clang-format on
