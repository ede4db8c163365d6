// SPDX-License-Identifier: Apache-2.0
// The sheets of the document, and what it says of itself.
#include <algorithm>
#include <string_view>

#include "excel/Excel.h"
#include "view/DocumentProperties.h"
#include "view/TextHelpers.h"

namespace {

constexpr int32_t titleCapacity = 4096; // UTF-16 units
constexpr size_t longestTitle = 2047;   // bytes
constexpr size_t bytesForASheet = 128;

// A text that ends where its budget of bytes does.
class BoundedText {
public:
    explicit BoundedText(size_t budget) : mBudget(budget) {}

    void append(std::string_view text) {
        const std::string_view part = utf8Prefix(text, mBudget - mText.size());
        mText += part;
        if (part.size() < text.size()) {
            mBudget = mText.size(); // nothing goes on behind a gap
        }
    }
    const std::string& text() const { return mText; }

private:
    size_t mBudget;
    std::string mText;
};

} // namespace

std::string Excel::getSheetList() {
    if (isOpen()) {
        mModule.stg_get_sheet_count(mDocument, &mSheetCount);
    }
    const int32_t count = std::max(0, mSheetCount);
    BoundedText list(bytesForASheet * static_cast<size_t>(count));
    for (int32_t i = 0; i < count; ++i) {
        list.append(i == 0 ? "{\"list\": [" : ",");
        uint16_t title[titleCapacity] = {};
        int32_t length = 0;
        mModule.stg_get_sheet_title(mDocument, i, title, titleCapacity, &length);
        list.append("{\"data\":\"");
        list.append(utf8Prefix(utf8OfBuffer(title), longestTitle));
        list.append("\", \"listitem\":\"");
        list.append(std::to_string(i + 1));
        list.append("\", \"status\":\"");
        list.append(i == mCurrentSheet ? "images/check.png" : "");
        list.append("\"}");
    }
    list.append("]}");
    return list.text();
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
