// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"
#include "client/glib/DocumentValues.h"
#include "client/glib/PaintedFrame.h"
#include <lectern/Document.h>
#include <lectern/Opening.h>

#include <memory>

namespace lectern {

// The members of a LecternDocument. Used in the main context of the open, except before it.
struct DocumentMembers {
    GLibHolder<LecternService> service;
    GLibHolder<GFile> file;
    DocumentValues values;

    bool inputSent = false;    // since the last paint
    int searches = 0;          // under way
    bool viewAsked = false;    // a getView is under way
    bool viewOutdated = false; // and another one must follow
    Painted painted;           // without a segment before the first paint
    GLibHolder<GBytes> frame;  // the pixels of `painted`

    // Declared so that each is destroyed before those that it uses.
    std::shared_ptr<PaintedFrame> paintedFrame = std::make_shared<PaintedFrame>(); // of the lane Paint
    std::unique_ptr<Document> document; // null before the open has succeeded
    std::unique_ptr<Opening> opening;   // null unless an open is under way
};

// Signals, by their numbers in the class.
enum class DocumentSignal {
    Invalidated,
    LinkTapped,
    CommentTapped,
    CellTapped,
    ColumnSelected,
    TracksSelected,
    TrackResized,
    ClickUnused,
    Overscroll,
    Lost,
    Count,
};

// Emits a signal with its arguments.
template<typename... Arguments>
void emit(LecternDocument* self, DocumentSignal signal, Arguments... arguments);

guint signalNumber(DocumentSignal signal);

template<typename... Arguments>
void emit(LecternDocument* self, DocumentSignal signal, Arguments... arguments) {
    g_signal_emit(self, signalNumber(signal), 0, arguments...);
}

// A document that may have been freed meanwhile: for callbacks of the library.
class WeakDocument {
public:
    explicit WeakDocument(LecternDocument* document)
        : mReference(new GWeakRef, [](GWeakRef* reference) {
              g_weak_ref_clear(reference);
              delete reference;
          }) {
        g_weak_ref_init(mReference.get(), document);
    }
    // Null once it has been freed.
    GLibHolder<LecternDocument> get() const {
        return GLibHolder<LecternDocument>(static_cast<LecternDocument*>(g_weak_ref_get(mReference.get())));
    }

private:
    std::shared_ptr<GWeakRef> mReference;
};

} // namespace lectern

struct _LecternDocument {
    GObject parent;
    lectern::DocumentMembers* members; // owned
};

namespace lectern {

// The values of a document; those of a new one for something else.
inline const DocumentValues& valuesOf(LecternDocument* self) {
    static const DocumentValues NO_VALUES;
    g_return_val_if_fail(LECTERN_IS_DOCUMENT(self), NO_VALUES);
    return self->members->values;
}

} // namespace lectern
