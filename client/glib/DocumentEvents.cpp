// SPDX-License-Identifier: Apache-2.0
#include "client/glib/DocumentEvents.h"

#include "client/glib/DocumentProperties.h"
#include "client/glib/Error.h"
#include <lectern/CommonCalls.h>

#include <array>

namespace lectern {

namespace {

std::array<guint, static_cast<size_t>(DocumentSignal::Count)> gSignals;

template<typename... Types>
void install(GType type, DocumentSignal signal, const char* name, Types... types) {
    gSignals[static_cast<size_t>(signal)] =
        g_signal_new(name, type, G_SIGNAL_RUN_LAST, 0, nullptr, nullptr, nullptr, G_TYPE_NONE,
                     static_cast<guint>(sizeof...(types)), types...);
}

// A callback that emits a signal without arguments.
std::function<void()> emitter(const WeakDocument& weak, DocumentSignal signal) {
    return [weak, signal] {
        if (const auto self = weak.get()) {
            emit(self.get(), signal);
        }
    };
}

} // namespace

guint signalNumber(DocumentSignal signal) {
    return gSignals[static_cast<size_t>(signal)];
}

void installSignals(GType type) {
    /**
     * LecternDocument::invalidated:
     * @self: the document
     *
     * The view has changed: paint it. Also emitted after an open, a resize and a reopen.
     * One emission may stand for several changes.
     */
    install(type, DocumentSignal::Invalidated, "invalidated");
    /**
     * LecternDocument::link-tapped:
     * @self: the document
     *
     * A link was tapped: [method@Document.get_link_async] returns it. A link within the
     * document is followed at once.
     */
    install(type, DocumentSignal::LinkTapped, "link-tapped");
    /**
     * LecternDocument::comment-tapped:
     * @self: the document
     *
     * A cell with a comment was tapped: [method@Document.get_comment_async] returns it.
     */
    install(type, DocumentSignal::CommentTapped, "comment-tapped");
    /**
     * LecternDocument::cell-tapped:
     * @self: the document
     * @column: its column, from 0
     * @row: its row, from 0
     *
     * A cell was tapped.
     */
    install(type, DocumentSignal::CellTapped, "cell-tapped", G_TYPE_INT, G_TYPE_INT);
    /**
     * LecternDocument::column-selected:
     * @self: the document
     *
     * One column of a sheet was selected, by which the sheet can be sorted.
     */
    install(type, DocumentSignal::ColumnSelected, "column-selected");
    /**
     * LecternDocument::tracks-selected:
     * @self: the document
     *
     * A row, or several columns or rows, of a sheet were selected.
     */
    install(type, DocumentSignal::TracksSelected, "tracks-selected");
    /**
     * LecternDocument::track-resized:
     * @self: the document
     *
     * A drag that resizes a column or row has ended.
     */
    install(type, DocumentSignal::TrackResized, "track-resized");
    /**
     * LecternDocument::click-unused:
     * @self: the document
     *
     * A click had no effect in the document.
     */
    install(type, DocumentSignal::ClickUnused, "click-unused");
    /**
     * LecternDocument::overscroll:
     * @self: the document
     * @x: view pixels beyond the right edge; below 0 beyond the left one
     * @y: view pixels beyond the bottom edge; below 0 beyond the top one
     *
     * The finger is beyond an edge of the document; 0 and 0 when it no longer is.
     * Programs may move the picture a little by it.
     */
    install(type, DocumentSignal::Overscroll, "overscroll", G_TYPE_INT, G_TYPE_INT);
    /**
     * LecternDocument::lost:
     * @self: the document
     * @error: the reason
     *
     * The service cannot bring the document back after its rendering engine has ended.
     * The last picture stays; [method@Document.reopen_async] may open it again.
     */
    install(type, DocumentSignal::Lost, "lost", G_TYPE_ERROR);
}

ViewEvents eventsOf(LecternDocument* self) {
    const WeakDocument weak(self);
    ViewEvents events;
    events.onInvalidated = emitter(weak, DocumentSignal::Invalidated);
    events.onLinkTapped = emitter(weak, DocumentSignal::LinkTapped);
    events.onCommentTapped = emitter(weak, DocumentSignal::CommentTapped);
    events.onColumnSelected = emitter(weak, DocumentSignal::ColumnSelected);
    events.onTracksSelected = emitter(weak, DocumentSignal::TracksSelected);
    events.onTrackResized = emitter(weak, DocumentSignal::TrackResized);
    events.onClickUnused = emitter(weak, DocumentSignal::ClickUnused);
    events.onCellTapped = [weak](int column, int row) {
        if (const auto document = weak.get()) {
            emit(document.get(), DocumentSignal::CellTapped, column, row);
        }
    };
    events.onOverscroll = [weak](int x, int y) {
        if (const auto document = weak.get()) {
            emit(document.get(), DocumentSignal::Overscroll, x, y);
        }
    };
    events.onOpenProgress = [weak](int percent) {
        if (const auto document = weak.get()) {
            change(document.get(), &DocumentValues::progress, percent);
        }
    };
    events.onDocumentLost = [weak](const Error& error) {
        if (const auto document = weak.get()) {
            emit(document.get(), DocumentSignal::Lost, toGError(error).get());
        }
    };
    events.onServiceGone = [weak] {
        if (const auto document = weak.get()) {
            change(document.get(), &DocumentValues::gone, true);
        }
    };
    return events;
}

void refreshView(LecternDocument* self) {
    DocumentMembers& members = *self->members;
    if (members.document == nullptr || std::exchange(members.viewAsked, true)) {
        members.viewOutdated = true;
        return;
    }
    members.viewOutdated = false;
    members.document->ask(touch::getView(),
                          [weak = WeakDocument(self)](const Result<touch::ViewPlace>& view) {
                              const auto document = weak.get();
                              if (document == nullptr) {
                                  return;
                              }
                              document->members->viewAsked = false;
                              if (view) {
                                  takeView(document.get(), *view);
                              }
                              if (view && document->members->viewOutdated) {
                                  refreshView(document.get());
                              }
                          });
}

void refreshTitle(LecternDocument* self) {
    self->members->document->ask(
        common::getProperties(),
        [weak = WeakDocument(self)](const Result<common::DocumentProperties>& properties) {
            const auto document = weak.get();
            if (document != nullptr && properties && !properties->name.empty()) {
                changeTitle(document.get(), properties->name);
            }
        });
}

} // namespace lectern
