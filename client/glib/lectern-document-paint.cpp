// SPDX-License-Identifier: Apache-2.0
// Paints, and the memory that they paint into.
#include "client/glib/DocumentEvents.h"
#include "client/glib/DocumentProperties.h"
#include "client/glib/Task.h"

namespace lectern {

namespace {

// Resizes wait for paints and the other way round, because both use the frame buffer.
void resize(LecternDocument* self, int width, int height, const Caller& caller) {
    const std::shared_ptr<Task> task = startTask(self, caller);
    if (!requireOpen(*task)) {
        return;
    }
    self->members->document->later(
        Lane::Paint,
        [width, height](Document& document, const std::stop_token& stop) {
            return document.resize(width, height, {.stop = stop});
        },
        [task, width, height](const Failure& failure) {
            LecternDocument* resized = task->document();
            if (!failure) {
                {
                    const Notifications notifications(resized);
                    change(resized, &DocumentValues::width, width);
                    change(resized, &DocumentValues::height, height);
                }
                emit(resized, DocumentSignal::Invalidated);
            }
            end(*task, failure);
        },
        task->stop());
}

// A picture, and the place of the view that belongs to it.
struct PaintResult {
    Painted picture;
    ViewState state{};
};

Failure paintAndLook(Document& document, const std::stop_token& stop, bool afterInput, PaintedFrame& frame,
                     PaintResult& result) {
    if (afterInput) {
        document.settle(); // the paint would overtake input that the service has not read
    }
    Failure failure = document.paint({.stop = stop});
    if (failure) {
        return failure;
    }
    Result<Painted> painted = frame.look(document.frame());
    if (!painted) {
        return painted.error();
    }
    result = {std::move(*painted), document.state()};
    return std::nullopt;
}

void takePainted(LecternDocument* self, const PaintResult& result) {
    DocumentMembers& members = *self->members;
    if (members.painted.segment != result.picture.segment) {
        members.frame = bytesOf(result.picture);
    }
    members.painted = result.picture;
    const DocumentValues before = members.values;
    takeState(self, result.state);
    const bool moved =
        before.x != members.values.x || before.y != members.values.y || before.zoom != members.values.zoom;
    if (moved || before.moving || result.picture.damage.width > 0) {
        refreshView(self);
    }
}

void paint(LecternDocument* self, const Caller& caller) {
    const std::shared_ptr<Task> task = startTask(self, caller);
    if (!requireOpen(*task)) {
        return;
    }
    const auto result = std::make_shared<PaintResult>();
    self->members->document->later(
        Lane::Paint,
        [result, frame = self->members->paintedFrame,
         afterInput = std::exchange(self->members->inputSent, false)](Document& document,
                                                                      const std::stop_token& stop) {
            return paintAndLook(document, stop, afterInput, *frame, *result);
        },
        [task, result](const Failure& failure) {
            if (failure) {
                task->fail(*failure);
                return;
            }
            takePainted(task->document(), *result);
            const LecternRectangle damage = toRectangle(result->picture.damage);
            task->succeed({lectern_rectangle_copy(&damage), [](gpointer value) {
                               lectern_rectangle_free(static_cast<LecternRectangle*>(value));
                           }});
        },
        task->stop());
}

} // namespace

} // namespace lectern

/**
 * lectern_document_paint_async:
 * @self: a document
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Paints the view. The pixels of [method@Document.get_frame] change from this call on,
 * and are valid again when it has ended.
 */
void lectern_document_paint_async(LecternDocument* self, GCancellable* cancellable,
                                  GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    lectern::paint(self, {lectern_document_paint_async, cancellable, callback, user_data});
}

/**
 * lectern_document_paint_finish:
 * @self: a document
 * @result: the result that the callback received
 * @damage: (out caller-allocates) (optional): the smallest known rectangle in which the picture
 *   differs from the one before; empty when it does not
 * @error: return location for an error
 *
 * Ends [method@Document.paint_async].
 *
 * Returns: %TRUE on success
 */
gboolean lectern_document_paint_finish(LecternDocument* self, GAsyncResult* result, LecternRectangle* damage,
                                       GError** error) {
    auto* painted = lectern::finishValue<LecternRectangle>(self, result, error, lectern_document_paint_async);
    if (painted == nullptr) {
        return FALSE;
    }
    if (damage != nullptr) {
        *damage = *painted;
    }
    lectern_rectangle_free(painted);
    return TRUE;
}

/**
 * lectern_document_resize_async:
 * @self: a document
 * @width: pixels, 1 to 16384
 * @height: pixels, 1 to 16384
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Gives the view another size, after a turn of the device for example; the place in the
 * document stays. On failure the size stays. The next paint has the new size.
 */
void lectern_document_resize_async(LecternDocument* self, int width, int height, GCancellable* cancellable,
                                   GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    lectern::resize(self, width, height, {lectern_document_resize_async, cancellable, callback, user_data});
}

/**
 * lectern_document_resize_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.resize_async].
 *
 * Returns: %TRUE on success
 */
gboolean lectern_document_resize_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finish(self, result, error, lectern_document_resize_async);
}

/**
 * lectern_document_get_frame:
 * @self: a document
 * @width: (out) (optional): the width of the picture in pixels; 0 before the first paint
 * @height: (out) (optional): its height
 *
 * Returns the picture of the last paint: rows from the top without gaps, 4 bytes for
 * each pixel, 0xAARRGGBB in the byte order of the machine.
 *
 * The bytes are the memory that the service paints into, without a copy. A reference to
 * them keeps the memory. The next paint changes them, unless the view was resized.
 *
 * Returns: (transfer none) (nullable): the pixels, or %NULL before the first paint
 */
GBytes* lectern_document_get_frame(LecternDocument* self, int* width, int* height) {
    g_return_val_if_fail(LECTERN_IS_DOCUMENT(self), nullptr);
    const lectern::DocumentMembers& members = *self->members;
    if (width != nullptr) {
        *width = members.painted.width;
    }
    if (height != nullptr) {
        *height = members.painted.height;
    }
    return members.frame.get();
}
