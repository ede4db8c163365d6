// SPDX-License-Identifier: Apache-2.0
#include "view/DocumentList.h"

#include "view/TextHelpers.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr size_t TITLE_CAPACITY = 4096; // UTF-16 units
constexpr size_t LONGEST_TITLE = 2047;  // bytes
constexpr size_t BYTES_FOR_APART = 128;
// The most entries. No suite has more sheets or slides, and with a count that a broken
// module returns the loop would not end.
constexpr int MOST_PARTS = 65535;

// A text with a limited number of bytes. Cuts at whole characters.
class BoundedText {
public:
    explicit BoundedText(size_t budget) : mBudget(budget) {}

    void append(std::string_view text) {
        const std::string_view part = utf8Prefix(text, mBudget - mText.size());
        mText += part;
        if (part.size() < text.size()) {
            mBudget = mText.size(); // after a cut, nothing more may be appended
        }
    }
    const std::string& text() const { return mText; }

private:
    size_t mBudget;
    std::string mText;
};

} // namespace

std::string documentList(int count, int current, const TitleReader& readTitle) {
    const int parts = std::clamp(count, 0, MOST_PARTS);
    BoundedText list(BYTES_FOR_APART * static_cast<size_t>(parts));
    for (int i = 0; i < parts; ++i) {
        uint16_t title[TITLE_CAPACITY] = {};
        readTitle(i, title);
        list.append(i == 0 ? "{\"list\": [" : ",");
        list.append("{\"data\":\"");
        list.append(utf8Prefix(utf8OfBuffer(title), LONGEST_TITLE));
        list.append("\", \"listitem\":\"");
        list.append(std::to_string(i + 1));
        list.append("\", \"status\":\"");
        list.append(i == current ? "images/check.png" : "");
        list.append("\"}");
    }
    list.append("]}");
    return list.text();
}
