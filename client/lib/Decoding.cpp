// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Decoding.h"

#include "channel/DocAdapterCommon.h"
#include "client/lib/Errors.h"

#include <algorithm>
#include <iterator>

namespace lectern {

namespace {

struct Decoding {
    ClientMessageId id;
    void (*tell)(const ViewEvents& events, const ViewRecord& record);
};

template<auto Callback>
void plainly(const ViewEvents& events, const ViewRecord& /*record*/) {
    if (events.*Callback) {
        (events.*Callback)();
    }
}

constexpr Decoding DECODINGS[] = {
    {_INVALIDATED, plainly<&ViewEvents::onInvalidated>},
    {_HYPERLINK, plainly<&ViewEvents::onLinkTapped>},
    {_COMMENT_TAPPED, plainly<&ViewEvents::onCommentTapped>},
    {_CLICK_UNUSED, plainly<&ViewEvents::onClickUnused>},
    {_COLUMN_SELECTED, plainly<&ViewEvents::onColumnSelected>},
    {_TRACKS_SELECTED, plainly<&ViewEvents::onTracksSelected>},
    {_TRACK_RESIZED, plainly<&ViewEvents::onTrackResized>},
    {_SLIDE_CHANGED,
     [](const ViewEvents& events, const ViewRecord& record) {
         if (events.onSlideChanged) {
             events.onSlideChanged(record.value);
         }
     }},
    {_OPENED,
     [](const ViewEvents& events, const ViewRecord& record) {
         if (events.onOpened) {
             events.onOpened(record.extra);
         }
     }},
    {_OVERSCROLL,
     [](const ViewEvents& events, const ViewRecord& record) {
         if (events.onOverscroll) {
             events.onOverscroll(record.value, record.extra);
         }
     }},
    {_PROGRESS,
     [](const ViewEvents& events, const ViewRecord& record) {
         if (events.onOpenProgress) {
             events.onOpenProgress(record.extra);
         }
     }},
    {_CELL_TAPPED,
     [](const ViewEvents& events, const ViewRecord& record) {
         if (events.onCellTapped) {
             events.onCellTapped(record.value, record.extra);
         }
     }},
    {_DOCUMENT_LOST,
     [](const ViewEvents& events, const ViewRecord& record) {
         if (events.onDocumentLost) {
             events.onDocumentLost(lossError(record.extra));
         }
     }},
};

} // namespace

void tell(const ViewEvents& events, const ViewRecord& record) {
    if (events.onRecord) {
        events.onRecord(record);
    }
    const auto* known = std::find_if(std::begin(DECODINGS), std::end(DECODINGS),
                                     [&](const Decoding& decoding) { return decoding.id == record.id; });
    if (known != std::end(DECODINGS)) {
        known->tell(events, record);
    }
}

} // namespace lectern
