// SPDX-License-Identifier: Apache-2.0
// Input. Sent in order by a thread of the document, because sending may wait for the
// service. Input has no reply, and a document that is not open has no use for it. The
// service asks for no paint after most of it, so this library does.
#include "client/glib/DocumentObject.h"

namespace {

template<typename Send>
void input(LecternDocument* self, Send send) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    if (self->members->document != nullptr) {
        self->members->document->later(
            lectern::Lane::Input,
            [send](lectern::Document& document, const std::stop_token&) { return send(document); },
            [weak = lectern::WeakDocument(self)](const lectern::Failure& failure) {
                const auto document = weak.get();
                if (document != nullptr && !failure) {
                    document->members->inputSent = true;
                    lectern::emit(document.get(), lectern::DocumentSignal::Invalidated);
                }
            });
    }
}

} // namespace

/**
 * lectern_document_pen_down:
 * @self: a document
 * @x: view pixels from the left
 * @y: view pixels from the top
 *
 * A finger or pen touches the view. Starts a contact, which ends with
 * [method@Document.pen_up].
 */
void lectern_document_pen_down(LecternDocument* self, int x, int y) {
    input(self, [x, y](lectern::Document& document) { return document.penDown(x, y); });
}

/**
 * lectern_document_pen_move:
 * @self: a document
 * @x: view pixels from the left
 * @y: view pixels from the top
 *
 * The finger or pen moves: the document follows it.
 */
void lectern_document_pen_move(LecternDocument* self, int x, int y) {
    input(self, [x, y](lectern::Document& document) { return document.penMove(x, y); });
}

/**
 * lectern_document_pen_up:
 * @self: a document
 * @x: view pixels from the left
 * @y: view pixels from the top
 *
 * The finger or pen leaves the view. When a drag ends in a flick, call
 * [method@Document.flick] before it.
 */
void lectern_document_pen_up(LecternDocument* self, int x, int y) {
    input(self, [x, y](lectern::Document& document) { return document.penUp(x, y); });
}

/**
 * lectern_document_flick:
 * @self: a document
 * @velocity_x: of the finger, in pixels per second
 * @velocity_y: the same; below 0 the finger moves up, to later parts of the document
 *
 * A drag ends in a flick: the view glides on.
 */
void lectern_document_flick(LecternDocument* self, int velocity_x, int velocity_y) {
    input(self, [velocity_x, velocity_y](lectern::Document& document) {
        return document.flick(velocity_x, velocity_y);
    });
}

/**
 * lectern_document_click:
 * @self: a document
 * @x: view pixels from the left
 * @y: view pixels from the top
 *
 * A tap. One without effect emits [signal@Document::click-unused].
 */
void lectern_document_click(LecternDocument* self, int x, int y) {
    input(self, [x, y](lectern::Document& document) { return document.click(x, y); });
}

/**
 * lectern_document_double_click:
 * @self: a document
 * @x: view pixels from the left
 * @y: view pixels from the top
 *
 * A double tap: zooms in on what is there, or back.
 */
void lectern_document_double_click(LecternDocument* self, int x, int y) {
    input(self, [x, y](lectern::Document& document) { return document.doubleClick(x, y); });
}

/**
 * lectern_document_pinch:
 * @self: a document
 * @x: the point between the fingers, in view pixels from the left
 * @y: the same from the top
 * @factor: the distance of the fingers divided by that at the start; above 0
 * @phase: the step of the pinch
 *
 * Zooms about a point, which may move. The document is laid out again when the pinch
 * ends.
 */
void lectern_document_pinch(LecternDocument* self, int x, int y, double factor, LecternPinchPhase phase) {
    input(self, [x, y, factor, phase](lectern::Document& document) {
        return document.pinchAt(x, y, factor, static_cast<lectern::PinchStep>(phase));
    });
}

/**
 * lectern_document_scroll_by:
 * @self: a document
 * @x: view pixels to the right
 * @y: view pixels to later parts of the document
 *
 * Moves the view by a way of a wheel, a trackpad or keys.
 */
void lectern_document_scroll_by(LecternDocument* self, int x, int y) {
    input(self, [x, y](lectern::Document& document) { return document.scrollBy(x, y); });
}
