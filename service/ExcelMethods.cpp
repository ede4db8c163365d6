// SPDX-License-Identifier: Apache-2.0
// The category "/excel": what only spreadsheets can do.
#include <cstring>

#include "excel/Excel.h"
#include "service/DocumentMethod.h"
#include "service/MethodTables.h"
#include "view/JsonReply.h"

namespace {

constexpr char kWrongKind[] = "Not an Excel document";

// A handler for a method whose only parameter is "docid".
template<typename Operation>
bool sheetMethod(HubHandle* handle, HubMessage* message, Operation operation) {
    return documentMethodOf<Excel>(handle, message, kWrongKind, operation);
}

// A handler for a method that takes a text as well: operation(view, text).
template<typename Operation>
bool textMethod(HubHandle* handle, HubMessage* message, const char* key, Operation operation) {
    BusCall call(handle, message);
    int docid = 0;
    const char* text = nullptr;
    if (!readParameters(call, {{"docid", &docid}}, kNoParameter)) {
        return true;
    }
    if (!json_get_string(call.payload(), key, &text)) {
        call.replyError(kParamFailed, kNoParameter);
        return true;
    }
    withDocumentOf<Excel>(call, docid, kWrongKind, [&](Excel& view) {
        operation(view, text);
        call.replyDone();
    });
    return true;
}

// The caller hears of the change before it is shown.
void replyAndInvalidate(BusCall& call, Excel& view, const char* key, int value) {
    call.reply(formatSimpleJsonObject(key, value));
    view.InvalidateScreen();
}

// The key is what clients have always sent the path under.
bool copySelection(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return textMethod(handle, message, "column",
                      [](Excel& view, const char* path) { view.copySelection(path); });
}

bool getSheetList(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return sheetMethod(handle, message, [](BusCall& call, Excel& view) { call.reply(view.getSheetList()); });
}

bool jumpToSheet(HubHandle* handle, HubMessage* message, void* /*data*/) {
    BusCall call(handle, message);
    int docid = 0;
    int sheet = 0;
    if (readParameters(call, {{"docid", &docid}, {"sheet", &sheet}}, kNoParameter)) {
        withDocumentOf<Excel>(call, docid, kWrongKind, [&](Excel& view) {
            replyAndInvalidate(call, view, "cursheet", view.jumpToSheet(sheet));
        });
    }
    return true;
}

bool getLastComment(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return sheetMethod(handle, message,
                       [](BusCall& call, Excel& view) { call.reply(view.GetLastClickComment()); });
}

bool getColumnCount(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return sheetMethod(handle, message, [](BusCall& call, Excel& view) {
        call.reply(formatSimpleJsonObject("columncnt", view.columnCount()));
    });
}

bool sortAscending(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return sheetMethod(handle, message, [](BusCall& call, Excel& view) {
        replyAndInvalidate(call, view, "column", view.sortAscending());
    });
}

bool sortDescending(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return sheetMethod(handle, message, [](BusCall& call, Excel& view) {
        replyAndInvalidate(call, view, "column", view.sortDescending());
    });
}

bool resizeMode(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return textMethod(handle, message, "mode", [](Excel& view, const char* mode) {
        view.setResizeMode(std::strcmp(mode, "on") == 0);
    });
}

// Hides or shows columns and rows; the view asks for the paint itself.
bool hidingMethod(HubHandle* handle, HubMessage* message, void (Excel::*operation)()) {
    return sheetMethod(handle, message, [operation](BusCall& call, Excel& view) {
        withViewLocked(view, [&] { (view.*operation)(); });
        call.replyDone();
    });
}

bool hideSelection(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return hidingMethod(handle, message, &Excel::hideSelection);
}

bool unhideSelection(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return hidingMethod(handle, message, &Excel::unhideSelection);
}

bool unhideAll(HubHandle* handle, HubMessage* message, void* /*data*/) {
    return hidingMethod(handle, message, &Excel::unhideAll);
}

} // namespace

const HubMethod excelMethods[] = {
    {"copySelection", copySelection, 0},   {"getSheetList", getSheetList, 0},
    {"jumpToSheet", jumpToSheet, 0},       {"getLastComment", getLastComment, 0},
    {"getColumnCount", getColumnCount, 0}, {"sortAscending", sortAscending, 0},
    {"sortDescending", sortDescending, 0}, {"resizeMode", resizeMode, 0},
    {"hideSelection", hideSelection, 0},   {"unhideSelection", unhideSelection, 0},
    {"unhideAll", unhideAll, 0},           {nullptr, nullptr, 0},
};
