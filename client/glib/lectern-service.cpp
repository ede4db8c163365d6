// SPDX-License-Identifier: Apache-2.0
#include "client/glib/Error.h"
#include "client/glib/ServiceBus.h"
#include "client/glib/StopSource.h"
#include <lectern/Service.h>

#include <optional>

/**
 * LecternService:
 *
 * A connection to the document service.
 *
 * Uses the session bus when the service runs there or that bus can start it. Otherwise
 * it starts a private bus with a service of its own, and ends both with the last
 * reference to this object and its documents. Connecting does not start the service: the
 * first document does.
 *
 * A program needs one connection for all its documents. Any thread may use it.
 */
struct _LecternService {
    GObject parent;
    lectern::Service* service; // owned
};

G_DEFINE_TYPE(LecternService, lectern_service, G_TYPE_OBJECT)

namespace {

enum Property : guint { PROPERTY_PRIVATE = 1 };

void getProperty(GObject* object, guint id, GValue* value, GParamSpec* spec) {
    if (id == PROPERTY_PRIVATE) {
        g_value_set_boolean(value, lectern_service_is_private(LECTERN_SERVICE(object)));
    } else {
        G_OBJECT_WARN_INVALID_PROPERTY_ID(object, id, spec);
    }
}

void finalize(GObject* object) {
    delete LECTERN_SERVICE(object)->service;
    G_OBJECT_CLASS(lectern_service_parent_class)->finalize(object);
}

} // namespace

static void lectern_service_class_init(LecternServiceClass* type) {
    GObjectClass* object = G_OBJECT_CLASS(type);
    object->get_property = getProperty;
    object->finalize = finalize;

    /**
     * LecternService:private: (getter is_private)
     *
     * Whether the connection is to a private bus of this program.
     */
    g_object_class_install_property(
        object, PROPERTY_PRIVATE,
        g_param_spec_boolean("private", nullptr, nullptr, FALSE,
                             static_cast<GParamFlags>(G_PARAM_READABLE | G_PARAM_STATIC_STRINGS)));
}

static void lectern_service_init(LecternService*) {}

/**
 * lectern_service_isolate:
 * @error: return location for an error
 *
 * Moves the process into an IPC namespace of its own, in which a private service
 * conflicts with no other service on the machine and leaves nothing behind.
 *
 * Has no effect when the session bus has the service. Programs for devices without a
 * service on the session bus call it first in main, because only a process with one
 * thread can do this.
 *
 * Returns: %TRUE on success; %FALSE when the system does not allow it: connecting is
 *   possible all the same, but not a second private service on the machine
 */
gboolean lectern_service_isolate(GError** error) {
    if (const lectern::Failure failure = lectern::Service::isolate()) {
        g_propagate_error(error, lectern::toGError(*failure).release());
        return FALSE;
    }
    return TRUE;
}

/**
 * lectern_service_connect_sync:
 * @cancellable: (nullable): cancels the call
 * @error: return location for an error
 *
 * Connects to the service and waits for it.
 *
 * Returns: (transfer full): the connection, or %NULL on error
 */
LecternService* lectern_service_connect_sync(GCancellable* cancellable, GError** error) {
    const lectern::StopSource stop(cancellable);
    lectern::Result<lectern::Service> opened = lectern::Service::open({.stop = stop.token()});
    if (!opened) {
        g_propagate_error(error, lectern::toGError(opened.error()).release());
        return nullptr;
    }
    auto* self = LECTERN_SERVICE(g_object_new(LECTERN_TYPE_SERVICE, nullptr));
    self->service = new lectern::Service(std::move(*opened));
    return self;
}

/**
 * lectern_service_connect_async:
 * @cancellable: (nullable): cancels the call
 * @callback: (scope async): called when the call has ended
 * @user_data: data for the callback
 *
 * Connects to the service.
 */
void lectern_service_connect_async(GCancellable* cancellable, GAsyncReadyCallback callback,
                                   gpointer user_data) {
    const lectern::GLibHolder<GTask> task(g_task_new(nullptr, cancellable, callback, user_data));
    g_task_set_source_tag(task.get(), reinterpret_cast<gpointer>(lectern_service_connect_async));
    g_task_run_in_thread(task.get(), [](GTask* running, gpointer, gpointer, GCancellable* stop) {
        lectern::GLibHolder<GError> error;
        if (LecternService* service = lectern_service_connect_sync(stop, lectern::out(error))) {
            g_task_return_pointer(running, service, g_object_unref);
        } else {
            g_task_return_error(running, error.release());
        }
    });
}

/**
 * lectern_service_connect_finish:
 * @result: the result that the callback received
 * @error: return location for an error
 *
 * Ends [func@Service.connect_async].
 *
 * Returns: (transfer full): the connection, or %NULL on error
 */
LecternService* lectern_service_connect_finish(GAsyncResult* result, GError** error) {
    g_return_val_if_fail(g_task_is_valid(result, nullptr), nullptr);
    return static_cast<LecternService*>(g_task_propagate_pointer(G_TASK(result), error));
}

/**
 * lectern_service_is_private: (get-property private)
 * @self: a connection
 *
 * Reads [property@Service:private].
 *
 * Returns: whether the connection is to a private bus of this program
 */
gboolean lectern_service_is_private(LecternService* self) {
    g_return_val_if_fail(LECTERN_IS_SERVICE(self) && self->service != nullptr, FALSE);
    return self->service->isPrivate() ? TRUE : FALSE;
}

namespace lectern {

const Bus& busOf(LecternService* service) {
    return service->service->bus();
}

} // namespace lectern
