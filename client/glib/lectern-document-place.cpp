// SPDX-License-Identifier: Apache-2.0
// Calls that move the view: places, zooms, parts, entries of the outline.
#include "client/glib/DocumentProperties.h"
#include "client/glib/Task.h"
#include <lectern/ExcelCalls.h>
#include <lectern/PptCalls.h>
#include <lectern/WordCalls.h>

namespace {

// The view's centre, if a coordinate is negative.
std::optional<lectern::Point> aboutPoint(int x, int y) {
    return x < 0 || y < 0 ? std::nullopt : std::optional(lectern::Point{x, y});
}

// Ends a call that has moved the view when the properties tell of it: all but the place,
// which belongs to the painted picture.
void endMove(const std::shared_ptr<lectern::Task>& task, const lectern::Failure& failure) {
    if (failure) {
        task->fail(*failure);
        return;
    }
    task->document()->members->document->ask(
        lectern::touch::getView(), [task](const lectern::Result<lectern::touch::ViewPlace>& view) {
            if (view) {
                const lectern::Notifications notifications(task->document());
                lectern::takeView(task->document(), *view);
                lectern::takeZoomAndPart(task->document(), *view);
            }
            task->succeed();
        });
}

lectern::Failure failureOf(const lectern::Failure& failure) {
    return failure;
}

lectern::Failure failureOf(const lectern::Result<int>& part) {
    return part ? lectern::Failure() : part.error();
}

template<typename Value>
void move(LecternDocument* self, const lectern::Caller& caller, const lectern::Call<Value>& call) {
    const std::shared_ptr<lectern::Task> task = lectern::startTask(self, caller);
    if (lectern::requireOpen(*task)) {
        self->members->document->ask(
            call, [task](const lectern::Answer<Value>& answer) { endMove(task, failureOf(answer)); },
            {.stop = task->stop()});
    }
}

std::string wordFor(LecternOrientation orientation) {
    switch (orientation) {
    case LECTERN_ORIENTATION_LEFT:
        return "left";
    case LECTERN_ORIENTATION_RIGHT:
        return "right";
    case LECTERN_ORIENTATION_DOWN:
        return "down";
    default:
        return "upright";
    }
}

lectern::Failure wrongKind() {
    return lectern::Error{lectern::Error::Kind::Refused, "a text has no sheets or slides", 0, "errWrongType"};
}

} // namespace

/**
 * lectern_document_scroll_to_async:
 * @self: a document
 * @x: pixels of the document at the current zoom, from its left edge
 * @y: the same from its top
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Moves the view's top left corner to a point of the document, as far as the document
 * reaches. Ends a glide.
 */
void lectern_document_scroll_to_async(LecternDocument* self, int x, int y, GCancellable* cancellable,
                                      GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    move(self, {lectern_document_scroll_to_async, cancellable, callback, user_data},
         lectern::touch::scrollTo({x, y}));
}

/**
 * lectern_document_scroll_to_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.scroll_to_async].
 *
 * Returns: %TRUE on success
 */
gboolean lectern_document_scroll_to_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finish(self, result, error, lectern_document_scroll_to_async);
}

/**
 * lectern_document_zoom_to_async:
 * @self: a document
 * @zoom: the zoom, of which the limits of the document hold
 * @x: view pixels from the left; below 0 for the centre of the view
 * @y: view pixels from the top; below 0 for the centre of the view
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Zooms. The document stays where it is under the point.
 */
void lectern_document_zoom_to_async(LecternDocument* self, double zoom, int x, int y,
                                    GCancellable* cancellable, GAsyncReadyCallback callback,
                                    gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    move(self, {lectern_document_zoom_to_async, cancellable, callback, user_data},
         lectern::touch::zoomTo(zoom, aboutPoint(x, y)));
}

/**
 * lectern_document_zoom_to_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.zoom_to_async].
 *
 * Returns: %TRUE on success
 */
gboolean lectern_document_zoom_to_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finish(self, result, error, lectern_document_zoom_to_async);
}

/**
 * lectern_document_go_to_async:
 * @self: a document
 * @entry: the number of an entry, from 0
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Shows an entry of the outline.
 */
void lectern_document_go_to_async(LecternDocument* self, int entry, GCancellable* cancellable,
                                  GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    move(self, {lectern_document_go_to_async, cancellable, callback, user_data}, lectern::touch::goTo(entry));
}

/**
 * lectern_document_go_to_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.go_to_async].
 *
 * Returns: %TRUE on success
 */
gboolean lectern_document_go_to_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finish(self, result, error, lectern_document_go_to_async);
}

/**
 * lectern_document_go_to_part_async:
 * @self: a document
 * @part: a sheet or slide, from 0
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Shows a sheet or slide. Fails with %LECTERN_SERVICE_ERROR_WRONG_KIND for texts.
 */
void lectern_document_go_to_part_async(LecternDocument* self, int part, GCancellable* cancellable,
                                       GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    const lectern::Caller caller{lectern_document_go_to_part_async, cancellable, callback, user_data};
    switch (lectern_document_get_kind(self)) {
    case LECTERN_DOCUMENT_KIND_SPREADSHEET:
        move(self, caller, lectern::excel::jumpToSheet(part));
        break;
    case LECTERN_DOCUMENT_KIND_PRESENTATION:
        move(self, caller, lectern::ppt::jumpToSlide(part));
        break;
    default:
        lectern::end(*lectern::startTask(self, caller), wrongKind());
    }
}

/**
 * lectern_document_go_to_part_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.go_to_part_async].
 *
 * Returns: %TRUE on success
 */
gboolean lectern_document_go_to_part_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finish(self, result, error, lectern_document_go_to_part_async);
}

/**
 * lectern_document_turn_async:
 * @self: a document
 * @orientation: how the device is held
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Turns the picture of a presentation, for a device whose system does not turn it.
 */
void lectern_document_turn_async(LecternDocument* self, LecternOrientation orientation,
                                 GCancellable* cancellable, GAsyncReadyCallback callback,
                                 gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    lectern::ask(self, {lectern_document_turn_async, cancellable, callback, user_data},
                 lectern::ppt::fitWideMode(wordFor(orientation)));
}

/**
 * lectern_document_turn_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.turn_async].
 *
 * Returns: %TRUE on success
 */
gboolean lectern_document_turn_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finish(self, result, error, lectern_document_turn_async);
}

/**
 * lectern_document_set_wide_mode_async:
 * @self: a document
 * @on: whether the text is wider than the view
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Lays a text out wider than the view, or as wide. Has no effect on other documents.
 */
void lectern_document_set_wide_mode_async(LecternDocument* self, gboolean on, GCancellable* cancellable,
                                          GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    lectern::ask(self, {lectern_document_set_wide_mode_async, cancellable, callback, user_data},
                 lectern::word::wideMode(on != FALSE));
}

/**
 * lectern_document_set_wide_mode_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.set_wide_mode_async].
 *
 * Returns: %TRUE on success
 */
gboolean lectern_document_set_wide_mode_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finish(self, result, error, lectern_document_set_wide_mode_async);
}
