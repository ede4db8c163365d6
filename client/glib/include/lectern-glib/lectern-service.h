/* SPDX-License-Identifier: Apache-2.0 */
#pragma once

#include <gio/gio.h>
#include <lectern-glib/lectern-version.h>

G_BEGIN_DECLS

/* A connection to the document service; see lectern-service.cpp. */
#define LECTERN_TYPE_SERVICE (lectern_service_get_type())
LECTERN_EXPORT
G_DECLARE_FINAL_TYPE(LecternService, lectern_service, LECTERN, SERVICE, GObject)

LECTERN_EXPORT
gboolean lectern_service_isolate(GError** error);
LECTERN_EXPORT
void lectern_service_connect_async(GCancellable* cancellable, GAsyncReadyCallback callback,
                                   gpointer user_data);
LECTERN_EXPORT
LecternService* lectern_service_connect_finish(GAsyncResult* result, GError** error);
LECTERN_EXPORT
LecternService* lectern_service_connect_sync(GCancellable* cancellable, GError** error);

LECTERN_EXPORT
gboolean lectern_service_is_private(LecternService* self);

G_END_DECLS
