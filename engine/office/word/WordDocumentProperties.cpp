// SPDX-License-Identifier: Apache-2.0
// The document's properties.
#include "engine/office/Properties.h"
#include "engine/office/word/WordDocumentPrivate.h"

#include <algorithm>
#include <string_view>

namespace lectern::engine {

namespace {

int32_t wordsIn(std::u16string_view text) {
    int32_t words = 0;
    bool isInside = false;
    for (const char16_t unit : text) {
        const bool isBlank = unit == u' ' || unit == u'\t';
        words += !isBlank && !isInside ? 1 : 0;
        isInside = !isBlank;
    }
    return words;
}

// The words in the numbers and signs before list paragraphs. The suite counts
// them as words of the text.
int32_t wordsInLabels(const Body& body) {
    int32_t words = 0;
    for (const BodyParagraph& paragraph : body.paragraphs()) {
        if (paragraph.kind != BodyParagraph::Kind::Attached) {
            words += wordsIn(toText(property<OUString>(propertiesOf(paragraph.range), "ListLabelString")));
        }
    }
    return words;
}

} // namespace

int32_t WordDocument::information(DocumentInformation& information) {
    return guardedInOffice([&]() -> int32_t {
        information = informationOf(mPrivate->document.model);
        return MODULE_OK;
    });
}

int32_t WordDocument::wordCount(int32_t& count) {
    return guardedInOffice([&]() -> int32_t {
        sal_Int32 all = 0;
        // The suite does not count the words of the part that is not laid out.
        mPrivate->flow.withWholeText(
            [&] { all = property<sal_Int32>(propertiesOf(mPrivate->document.model), "WordCount"); });
        count = std::max(all - wordsInLabels(mPrivate->prepared.body), 0);
        return MODULE_OK;
    });
}

} // namespace lectern::engine
