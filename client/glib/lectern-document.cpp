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
            change(opened, &DocumentValues::opened, true);
            if (view) {
                takeView(opened, *view);
                takeZoomAndPart(opened, *view);
            }
        }
        emit(opened, DocumentSignal::Invalidated);
        task->succeed();
        refreshTitle(opened);
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
    const GLibHolder<GMainContext> context(g_main_context_ref_thread_default());
    OpenOptions options = optionsOf(self, password, *task);
    options.context = context.get();
    members.opening = Opening::start(busOf(members.service.get()), path.get(), std::move(options),
                                     [task](Result<std::unique_ptr<Document>> opened) {
                                         const auto ended = std::move(task->document()->members->opening);
                                         if (opened) {
                                             takeOpened(task, std::move(*opened));
                                         } else {
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

Failure paintAndLook(Document& document, const std::stop_token& stop, PaintedFrame& frame,
                     PaintResult& result) {
    document.settle(); // a paint overtakes input that the service has not read
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
        [result, frame = self->members->paintedFrame](Document& document, const std::stop_token& stop) {
            return paintAndLook(document, stop, *frame, *result);
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
