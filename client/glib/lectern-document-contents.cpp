// SPDX-License-Identifier: Apache-2.0
// Calls that read a document or write it to files.
#include "client/glib/DocumentProperties.h"
#include "client/glib/Task.h"
#include <lectern/CommonCalls.h>
#include <lectern/PptCalls.h>

namespace {

using lectern::Error;
using lectern::Failure;
using lectern::FrameBuffer;

void getThumbnail(LecternDocument* self, int part, int width, int height, const lectern::Caller& caller) {
    const std::shared_ptr<lectern::Task> task = lectern::startTask(self, caller);
    if (!lectern::requireOpen(*task)) {
        return;
    }
    lectern::Result<FrameBuffer> created = FrameBuffer::create(width, height);
    if (!created) {
        task->fail(created.error());
        return;
    }
    const auto picture = std::make_shared<const FrameBuffer>(std::move(*created));
    self->members->document->ask(lectern::touch::getThumbnail(part, *picture),
                                 [task, picture](const Failure& failure) {
                                     if (failure) {
                                         task->fail(*failure);
                                     } else {
                                         task->succeed(lectern::returned(lectern::bytesOf(picture)));
                                     }
                                 },
                                 {.stop = task->stop()});
}

void exportTo(LecternDocument* self, LecternExportFormat format, GFile* target,
              const lectern::Caller& caller) {
    const lectern::GLibHolder<char> path(g_file_get_path(target));
    if (path == nullptr) {
        lectern::startTask(self, caller)
            ->fail({Error::Kind::Argument, "the target is not a local file", 0, {}});
        return;
    }
    lectern::ask(self, caller,
                 lectern::touch::exportTo(static_cast<lectern::touch::ExportFormat>(format), path.get()));
}

} // namespace

/**
 * lectern_document_get_text_async:
 * @self: a document
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Asks for the text on the screen, in reading order.
 */
void lectern_document_get_text_async(LecternDocument* self, GCancellable* cancellable,
                                     GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    lectern::ask(self, {lectern_document_get_text_async, cancellable, callback, user_data},
                 lectern::touch::getText());
}

/**
 * lectern_document_get_text_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.get_text_async].
 *
 * Returns: (transfer container) (element-type LecternTextLine): the lines, or %NULL on error
 */
GPtrArray* lectern_document_get_text_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finishValue<GPtrArray>(self, result, error, lectern_document_get_text_async);
}

/**
 * lectern_document_get_link_async:
 * @self: a document
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Asks for the address of the link that was tapped last.
 */
void lectern_document_get_link_async(LecternDocument* self, GCancellable* cancellable,
                                     GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    lectern::ask(self, {lectern_document_get_link_async, cancellable, callback, user_data},
                 lectern::touch::getLink());
}

/**
 * lectern_document_get_link_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.get_link_async].
 *
 * Returns: (transfer full): the address, which is empty before the first tap of a link,
 * or %NULL on error
 */
char* lectern_document_get_link_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finishValue<char>(self, result, error, lectern_document_get_link_async);
}

/**
 * lectern_document_get_outline_async:
 * @self: a document
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Asks for the headings of a text, or the sheets or slides.
 */
void lectern_document_get_outline_async(LecternDocument* self, GCancellable* cancellable,
                                        GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    lectern::ask(self, {lectern_document_get_outline_async, cancellable, callback, user_data},
                 lectern::touch::getOutline());
}

/**
 * lectern_document_get_outline_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.get_outline_async].
 *
 * Returns: (transfer full): a list of [class@OutlineEntry], or %NULL on error
 */
GListModel* lectern_document_get_outline_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finishValue<GListModel>(self, result, error, lectern_document_get_outline_async);
}

/**
 * lectern_document_get_thumbnail_async:
 * @self: a document
 * @part: a slide or page, from 0
 * @width: of the picture in pixels, 1 to 16384
 * @height: the same
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Paints a slide or page into a picture of its own, whole and centred.
 */
void lectern_document_get_thumbnail_async(LecternDocument* self, int part, int width, int height,
                                          GCancellable* cancellable, GAsyncReadyCallback callback,
                                          gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    getThumbnail(self, part, width, height,
                 {lectern_document_get_thumbnail_async, cancellable, callback, user_data});
}

/**
 * lectern_document_get_thumbnail_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.get_thumbnail_async].
 *
 * Returns: (transfer full): the pixels, as those of [method@Document.get_frame], or
 * %NULL on error
 */
GBytes* lectern_document_get_thumbnail_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finishValue<GBytes>(self, result, error, lectern_document_get_thumbnail_async);
}

/**
 * lectern_document_export_async:
 * @self: a document
 * @format: of the file to write
 * @target: a local file, which is made or emptied first
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Writes the document to a file. May take a minute, and the service answers no other
 * call meanwhile.
 */
void lectern_document_export_async(LecternDocument* self, LecternExportFormat format, GFile* target,
                                   GCancellable* cancellable, GAsyncReadyCallback callback,
                                   gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    g_return_if_fail(G_IS_FILE(target));
    exportTo(self, format, target, {lectern_document_export_async, cancellable, callback, user_data});
}

/**
 * lectern_document_export_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.export_async].
 *
 * Returns: %TRUE on success
 */
gboolean lectern_document_export_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finish(self, result, error, lectern_document_export_async);
}

/**
 * lectern_document_get_note_async:
 * @self: a document
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Asks for the note of the shown slide.
 */
void lectern_document_get_note_async(LecternDocument* self, GCancellable* cancellable,
                                     GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    lectern::ask(self, {lectern_document_get_note_async, cancellable, callback, user_data},
                 lectern::ppt::getNote());
}

/**
 * lectern_document_get_note_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.get_note_async].
 *
 * Returns: (transfer full): the note, which may be empty, or %NULL on error
 */
char* lectern_document_get_note_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finishValue<char>(self, result, error, lectern_document_get_note_async);
}

/**
 * lectern_document_get_properties_async:
 * @self: a document
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Asks for what the document says of itself.
 */
void lectern_document_get_properties_async(LecternDocument* self, GCancellable* cancellable,
                                           GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    lectern::ask(self, {lectern_document_get_properties_async, cancellable, callback, user_data},
                 lectern::common::getProperties());
}

/**
 * lectern_document_get_properties_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.get_properties_async].
 *
 * Returns: (transfer full): the properties, or %NULL on error
 */
LecternProperties* lectern_document_get_properties_finish(LecternDocument* self, GAsyncResult* result,
                                                          GError** error) {
    return lectern::finishValue<LecternProperties>(self, result, error,
                                                   lectern_document_get_properties_async);
}
