// SPDX-License-Identifier: Apache-2.0
// Searches and selections.
#include "client/glib/DocumentProperties.h"
#include "client/glib/Task.h"
#include <lectern/CommonCalls.h>

namespace {

constexpr char NO_HIT[] = "there is no hit";

// Counts the searches under way.
void beginSearch(LecternDocument* self) {
    ++self->members->searches;
    lectern::change(self, &lectern::DocumentValues::searching, true);
}

void endSearch(LecternDocument* self) {
    --self->members->searches;
    lectern::change(self, &lectern::DocumentValues::searching, self->members->searches > 0);
}

void takeHit(LecternDocument* self, const lectern::touch::Hit& hit) {
    const lectern::Notifications notifications(self);
    lectern::change(self, &lectern::DocumentValues::hit, hit.hit);
    lectern::change(self, &lectern::DocumentValues::nHits, hit.hits);
    if (hit.hits > 0) {
        lectern::change(self, &lectern::DocumentValues::part, hit.part);
    }
}

// Makes a call that moves to a hit. No hit is an error.
void askForHit(LecternDocument* self, const lectern::Caller& caller,
               const lectern::Call<lectern::touch::Hit>& call) {
    using lectern::Error;
    const std::shared_ptr<lectern::Task> task = lectern::startTask(self, caller);
    if (!lectern::requireOpen(*task)) {
        return;
    }
    beginSearch(self);
    self->members->document->ask(call,
                                 [task](const lectern::Result<lectern::touch::Hit>& result) {
                                     LecternDocument* document = task->document();
                                     endSearch(document);
                                     const bool nothing = result ? result->hits == 0
                                                                 : result.error().name == "errNothingThere";
                                     if (nothing) {
                                         takeHit(document, {});
                                         task->fail({Error::Kind::Refused, NO_HIT, 0, "errNothingThere"});
                                     } else if (result) {
                                         takeHit(document, *result);
                                         task->succeed();
                                     } else {
                                         task->fail(result.error());
                                     }
                                 },
                                 {.stop = task->stop()});
}

} // namespace

/**
 * lectern_document_search_async:
 * @self: a document
 * @text: the words to look for
 * @flags: how
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Marks all hits and moves the view to the first one at or below its top. Updates
 * [property@Document:hit], [property@Document:n-hits] and [property@Document:part]
 * before the callback.
 */
void lectern_document_search_async(LecternDocument* self, const char* text, LecternSearchFlags flags,
                                   GCancellable* cancellable, GAsyncReadyCallback callback,
                                   gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    g_return_if_fail(text != nullptr);
    askForHit(self, {lectern_document_search_async, cancellable, callback, user_data},
              lectern::touch::search(text, {.matchCase = (flags & LECTERN_SEARCH_MATCH_CASE) != 0,
                                            .wholeWords = (flags & LECTERN_SEARCH_WHOLE_WORDS) != 0}));
}

/**
 * lectern_document_search_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.search_async].
 *
 * Returns: %TRUE on success; %FALSE with %LECTERN_SERVICE_ERROR_NOTHING_THERE when there
 * is no hit
 */
gboolean lectern_document_search_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finish(self, result, error, lectern_document_search_async);
}

/**
 * lectern_document_next_hit_async:
 * @self: a document
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Moves the view to the next hit; the first one follows the last one. Updates the
 * properties as [method@Document.search_async] does.
 */
void lectern_document_next_hit_async(LecternDocument* self, GCancellable* cancellable,
                                     GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    askForHit(self, {lectern_document_next_hit_async, cancellable, callback, user_data},
              lectern::touch::nextResult());
}

/**
 * lectern_document_next_hit_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.next_hit_async].
 *
 * Returns: %TRUE on success; %FALSE with %LECTERN_SERVICE_ERROR_NOTHING_THERE when there
 * is no hit
 */
gboolean lectern_document_next_hit_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finish(self, result, error, lectern_document_next_hit_async);
}

/**
 * lectern_document_previous_hit_async:
 * @self: a document
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Moves the view to the previous hit; the last one comes before the first one. Updates
 * the properties as [method@Document.search_async] does.
 */
void lectern_document_previous_hit_async(LecternDocument* self, GCancellable* cancellable,
                                         GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    askForHit(self, {lectern_document_previous_hit_async, cancellable, callback, user_data},
              lectern::touch::previousResult());
}

/**
 * lectern_document_previous_hit_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.previous_hit_async].
 *
 * Returns: %TRUE on success; %FALSE with %LECTERN_SERVICE_ERROR_NOTHING_THERE when there
 * is no hit
 */
gboolean lectern_document_previous_hit_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finish(self, result, error, lectern_document_previous_hit_async);
}

/**
 * lectern_document_close_search_async:
 * @self: a document
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Ends the search and removes its marks.
 */
void lectern_document_close_search_async(LecternDocument* self, GCancellable* cancellable,
                                         GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    const auto task =
        lectern::startTask(self, {lectern_document_close_search_async, cancellable, callback, user_data});
    if (lectern::requireOpen(*task)) {
        self->members->document->ask(lectern::common::closeSearch(),
                                     [task](const lectern::Failure& failure) {
                                         if (!failure) {
                                             takeHit(task->document(), {});
                                         }
                                         lectern::end(*task, failure);
                                     },
                                     {.stop = task->stop()});
    }
}

/**
 * lectern_document_close_search_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.close_search_async].
 *
 * Returns: %TRUE on success
 */
gboolean lectern_document_close_search_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finish(self, result, error, lectern_document_close_search_async);
}

/**
 * lectern_document_select_async:
 * @self: a document
 * @unit: how much
 * @x: view pixels from the left
 * @y: view pixels from the top
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Selects the word or line at a point, all, or nothing. The point has no meaning for the
 * last two.
 */
void lectern_document_select_async(LecternDocument* self, LecternSelectUnit unit, int x, int y,
                                   GCancellable* cancellable, GAsyncReadyCallback callback,
                                   gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    lectern::ask(self, {lectern_document_select_async, cancellable, callback, user_data},
                 lectern::touch::select(static_cast<lectern::touch::SelectUnit>(unit), {x, y}));
}

/**
 * lectern_document_select_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.select_async].
 *
 * Returns: %TRUE on success
 */
gboolean lectern_document_select_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finish(self, result, error, lectern_document_select_async);
}

/**
 * lectern_document_move_selection_end_async:
 * @self: a document
 * @end: which end
 * @x: view pixels from the left
 * @y: view pixels from the top
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Moves an end of the selection to a point.
 */
void lectern_document_move_selection_end_async(LecternDocument* self, LecternSelectEnd end, int x, int y,
                                               GCancellable* cancellable, GAsyncReadyCallback callback,
                                               gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    lectern::ask(self, {lectern_document_move_selection_end_async, cancellable, callback, user_data},
                 lectern::touch::moveSelectionEnd(static_cast<lectern::touch::SelectEnd>(end), {x, y}));
}

/**
 * lectern_document_move_selection_end_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.move_selection_end_async].
 *
 * Returns: %TRUE on success
 */
gboolean lectern_document_move_selection_end_finish(LecternDocument* self, GAsyncResult* result,
                                                    GError** error) {
    return lectern::finish(self, result, error, lectern_document_move_selection_end_async);
}

/**
 * lectern_document_get_selection_async:
 * @self: a document
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Asks for what is selected.
 */
void lectern_document_get_selection_async(LecternDocument* self, GCancellable* cancellable,
                                          GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    lectern::ask(self, {lectern_document_get_selection_async, cancellable, callback, user_data},
                 lectern::touch::getSelection());
}

/**
 * lectern_document_get_selection_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.get_selection_async].
 *
 * Returns: (transfer full): the selection, which has an empty text when nothing is
 * selected, or %NULL on error
 */
LecternSelection* lectern_document_get_selection_finish(LecternDocument* self, GAsyncResult* result,
                                                        GError** error) {
    return lectern::finishValue<LecternSelection>(self, result, error, lectern_document_get_selection_async);
}
