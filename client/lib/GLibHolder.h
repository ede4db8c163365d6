// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gio/gio.h>

#include <memory>

namespace lectern {

// Owners of GLib objects, references and strings.
struct GLibRelease {
    void operator()(GError* error) const { g_error_free(error); }
    void operator()(GVariant* variant) const { g_variant_unref(variant); }
    void operator()(char* text) const { g_free(text); }
    void operator()(GCancellable* cancellable) const { g_object_unref(cancellable); }
    void operator()(GDBusConnection* connection) const { g_object_unref(connection); }
    void operator()(GDBusMessage* message) const { g_object_unref(message); }
    void operator()(GAsyncResult* result) const { g_object_unref(result); }
    void operator()(GMainContext* context) const { g_main_context_unref(context); }
    void operator()(GSource* source) const { g_source_unref(source); }
    void operator()(GOptionContext* context) const { g_option_context_free(context); }
};

template<typename T>
using GLibHolder = std::unique_ptr<T, GLibRelease>;

} // namespace lectern
