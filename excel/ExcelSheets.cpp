// SPDX-License-Identifier: Apache-2.0
// The list of sheets and the document's properties.
#include "excel/Excel.h"
#include "view/DocumentList.h"
#include "view/DocumentProperties.h"

std::string Excel::getSheetList() {
    if (isOpen()) {
        mModule.stg_get_sheet_count(mDocument, &mSheetCount);
    }
    return documentList(mSheetCount, mCurrentSheet, [this](int sheet, std::span<uint16_t> title) {
        int32_t length = 0;
        mModule.stg_get_sheet_title(mDocument, sheet, title.data(), static_cast<int32_t>(title.size()),
                                    &length);
    });
}

int Excel::jumpToSheet(int sheet) {
    mCurrentSheet = sheet;
    if (isOpen()) {
        refreshCommentMarks();
        mModule.stg_get_column_count(mDocument, sheet, &mColumnCount);
    }
    mOffscreenDirty = true;
    return sheet;
}

std::string Excel::getDocProperties() {
    return jsonText(documentProperties(
        mDocument,
        {mModule.stg_get_document_name, mModule.stg_get_document_author, mModule.stg_get_document_description,
         mModule.stg_get_document_last_saved_date, mModule.stg_get_document_creation_date}));
}
