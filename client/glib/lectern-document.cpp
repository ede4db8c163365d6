// SPDX-License-Identifier: Apache-2.0
// The class of documents: making, opening, painting and freeing them.
#include "client/glib/DocumentEvents.h"
#include "client/glib/DocumentProperties.h"
#include "client/glib/ServiceBus.h"
#include "client/glib/Task.h"

/**
 * LecternDocument:
 *
 * An open document and its view.
 *
 * Make it with [ctor@Document.new], set the size of its view and the dots per inch of
 * the screen, and open it with [method@Document.open_async]. Whenever
 * [signal@Document::invalidated] is emitted, call [method@Document.paint_async] and show
 * the picture of [method@Document.get_frame].
 *
 * Threads: signals and notifications come in the thread-default main context in which
 * the document was opened, and the object belongs to the thread of that context. The
 * callback of a call comes in the context in which the call was made. No function blocks.
 *
 * Order: calls of one document take effect in the order in which they were made. Input
 * keeps its order, too, and so do paints and resizes; but these three do not wait for
 * each other. A cancelled call may still take effect.
 *
 * Errors: calls fail in the domains [error@ServiceError] and [error@DocumentError], and
 * cancelled ones with `G_IO_ERROR_CANCELLED`.
 */
G_DEFINE_TYPE(LecternDocument, lectern_document, G_TYPE_OBJECT)

static void lectern_document_finalize(GObject* object) {
    delete LECTERN_DOCUMENT(object)->members;
    G_OBJECT_CLASS(lectern_document_parent_class)->finalize(object);
}

static void lectern_document_class_init(LecternDocumentClass* type) {
    G_OBJECT_CLASS(type)->finalize = lectern_document_finalize;
    lectern::installProperties(G_OBJECT_CLASS(type));
    lectern::installSignals(G_TYPE_FROM_CLASS(type));
}

static void lectern_document_init(LecternDocument* self) {
    self->members = new lectern::DocumentMembers;
}

/**
 * lectern_document_new:
 * @service: a connection to the service
 * @file: a local file
 *
 * Makes a document, which is not open yet.
 *
 * Returns: (transfer full): the document
 */
LecternDocument* lectern_document_new(LecternService* service, GFile* file) {
    g_return_val_if_fail(LECTERN_IS_SERVICE(service) && G_IS_FILE(file), nullptr);
    return LECTERN_DOCUMENT(g_object_new(LECTERN_TYPE_DOCUMENT, "service", service, "file", file, nullptr));
}

namespace lectern {

namespace {

OpenOptions optionsOf(LecternDocument* self, const char* password, const Task& task) {
    const DocumentValues& values = self->members->values;
    OpenOptions options;
    options.width = values.width;
    options.height = values.height;
    options.dpi = values.dpi;
    options.kind = static_cast<DocumentKind>(values.kind);
    if (password != nullptr) {
        options.password = password;
    }
    options.stop = task.stop();
    options.events = eventsOf(self);
    return options;
}

// The open ends when the place of the view is known, so that programs find all
// properties.
void takeOpened(const std::shared_ptr<Task>& task, std::unique_ptr<Document> document) {
    LecternDocument* self = task->document();
    self->members->document = std::move(document);
    self->members->document->ask(touch::getView(), [task](const Result<touch::ViewPlace>& view) {
        LecternDocument* opened = task->document();
        {
            const Notifications notifications(opened);
            changeKind(opened, static_cast<LecternDocumentKind>(opened->members->document->kind()));
            change(opened, &DocumentValues::progress, 100);
            change(opened, &DocumentValues::opening, false);
            change(opened, &DocumentValues::opened, true);
            if (view) {
                takeView(opened, *view);
                takeZoomAndPart(opened, *view);
            }
        }
        emit(opened, DocumentSignal::Invalidated);
        refreshTitle(opened);
        task->succeed(); // the callback may free the document
    });
}

void open(LecternDocument* self, const char* password, const Caller& caller) {
    DocumentMembers& members = *self->members;
    const std::shared_ptr<Task> task = startTask(self, caller);
    const GLibHolder<char> path(g_file_get_path(members.file.get()));
    if (members.opening != nullptr || members.document != nullptr) {
        task->fail({Error::Kind::Argument, "the document is open already", 0, {}});
        return;
    }
    if (path == nullptr) {
        task->fail({Error::Kind::Argument, "only local files can be opened", 0, {}});
        return;
    }
    change(self, &DocumentValues::progress, 0);
    change(self, &DocumentValues::opening, true);
    const GLibHolder<GMainContext> context(g_main_context_ref_thread_default());
    OpenOptions options = optionsOf(self, password, *task);
    options.context = context.get();
    members.opening = Opening::start(busOf(members.service.get()), path.get(), std::move(options),
                                     [task](Result<std::unique_ptr<Document>> opened) {
                                         const auto ended = std::move(task->document()->members->opening);
                                         if (opened) {
                                             takeOpened(task, std::move(*opened));
                                         } else {
                                             change(task->document(), &DocumentValues::opening, false);
                                             task->fail(opened.error());
                                         }
                                     });
}

void reopen(LecternDocument* self, const Caller& caller) {
    const std::shared_ptr<Task> task = startTask(self, caller);
    if (!requireOpen(*task)) {
        return;
    }
    change(self, &DocumentValues::progress, 0);
    self->members->document->later(
        Lane::Paint,
        [](Document& document, const std::stop_token& stop) {
            return document.reopen({.timeout = OpenOptions().timeout, .stop = stop});
        },
        [task](const Failure& failure) {
            LecternDocument* reopened = task->document();
            if (!failure) {
                change(reopened, &DocumentValues::progress, 100);
                change(reopened, &DocumentValues::gone, false);
                emit(reopened, DocumentSignal::Invalidated);
            }
            end(*task, failure);
        },
        task->stop());
}

} // namespace

bool requireOpen(Task& task) {
    const bool open = task.document()->members->document != nullptr;
    if (!open) {
        task.fail({Error::Kind::Refused, "the document is not open", 0, "errNotOpen"});
    }
    return open;
}

} // namespace lectern

/**
 * lectern_document_open_async:
 * @self: a document
 * @password: (nullable): the password of a protected document
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Opens the document. A failed open can be repeated, with another password for
 * example. Cancelling gives the open up in the service.
 */
void lectern_document_open_async(LecternDocument* self, const char* password, GCancellable* cancellable,
                                 GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    lectern::open(self, password, {lectern_document_open_async, cancellable, callback, user_data});
}

/**
 * lectern_document_open_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.open_async].
 *
 * Returns: %TRUE on success
 */
gboolean lectern_document_open_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finish(self, result, error, lectern_document_open_async);
}

/**
 * lectern_document_reopen_async:
 * @self: a document
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Opens the document again after the service has stopped or the document was lost; the
 * bus starts the service if it can. Restores the place, the zoom, and the sheet or slide
 * of the last paint, but not the selection or a search. A failed call can be repeated.
 */
void lectern_document_reopen_async(LecternDocument* self, GCancellable* cancellable,
                                   GAsyncReadyCallback callback, gpointer user_data) {
    g_return_if_fail(LECTERN_IS_DOCUMENT(self));
    lectern::reopen(self, {lectern_document_reopen_async, cancellable, callback, user_data});
}

/**
 * lectern_document_reopen_finish:
 * @self: a document
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [method@Document.reopen_async].
 *
 * Returns: %TRUE on success
 */
gboolean lectern_document_reopen_finish(LecternDocument* self, GAsyncResult* result, GError** error) {
    return lectern::finish(self, result, error, lectern_document_reopen_async);
}
