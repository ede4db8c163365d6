// SPDX-License-Identifier: Apache-2.0
// The list of slides, slide notes and the document's properties.
#include "ppt/PPT.h"
#include "view/DocumentList.h"
#include "view/DocumentProperties.h"
#include "view/TextHelpers.h"

namespace {

constexpr int32_t NOTE_CAPACITY = 1024; // UTF-16 units

} // namespace

std::string PPT::getSlideList() {
    if (mDocument != nullptr) {
        mModule.sstg_get_slide_count(mDocument, &mSlideCount);
        mSlideCount = std::max(0, mSlideCount);
    }
    return documentList(mSlideCount, mCurrentSlide, [this](int slide, std::span<uint16_t> title) {
        int32_t length = 0;
        mModule.sstg_get_slide_title(mDocument, slide, title.data(), static_cast<int32_t>(title.size()),
                                     &length);
    });
}

std::string PPT::getSlideNote() {
    uint8_t hasNote = 0;
    if (mDocument != nullptr) {
        mModule.sstg_slide_has_note(mDocument, mCurrentSlide, &hasNote);
    }
    if (hasNote == 0) {
        return {};
    }
    uint16_t note[NOTE_CAPACITY] = {};
    int32_t length = 0;
    mModule.sstg_get_slide_note(mDocument, mCurrentSlide, note, NOTE_CAPACITY, 0, &length);
    return formatSimpleJsonObject("note", utf8OfBuffer(note).c_str());
}

std::string PPT::getDocProperties() {
    return jsonText(documentProperties(
        mDocument, {mModule.sstg_get_document_name, mModule.sstg_get_document_author,
                    mModule.sstg_get_document_description, mModule.sstg_get_document_last_saved_date,
                    mModule.sstg_get_document_creation_date}));
}
