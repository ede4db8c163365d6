// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <glib-object.h>

#include <memory>

namespace lectern {

// Releases one reference to an object of GLib, or frees its memory.
struct GLibRelease {
    void operator()(char* text) const { g_free(text); }
    void operator()(GBytes* bytes) const { g_bytes_unref(bytes); }
    void operator()(GError* error) const { g_error_free(error); }
    void operator()(GVariant* variant) const { g_variant_unref(variant); }
    void operator()(GMainContext* context) const { g_main_context_unref(context); }
    void operator()(GMainLoop* loop) const { g_main_loop_unref(loop); }
    void operator()(GSource* source) const { g_source_unref(source); }
    void operator()(GOptionContext* context) const { g_option_context_free(context); }
    void operator()(GRegex* expression) const { g_regex_unref(expression); }
    void operator()(GMatchInfo* match) const { g_match_info_unref(match); }
    // All other types are classes and interfaces of GObject.
    template<typename Object>
    void operator()(Object* object) const {
        g_object_unref(object);
    }
};

// Owns one reference to an object of GLib, or none (null). Movable.
template<typename T>
using GLibHolder = std::unique_ptr<T, GLibRelease>;

// The argument that out() makes: an address that a function of C writes to. The
// holder takes over the written object when the statement with the call ends.
template<typename T>
class GLibOut {
public:
    explicit GLibOut(GLibHolder<T>& holder) : mHolder(holder) {}
    ~GLibOut() { mHolder.reset(mWritten); }
    GLibOut(const GLibOut&) = delete;
    GLibOut& operator=(const GLibOut&) = delete;

    operator T**() { return &mWritten; }

private:
    GLibHolder<T>& mHolder;
    T* mWritten = nullptr;
};

// Receives an object from a function that returns it through a parameter of the
// type T**, which may stay null:
//
//     GLibHolder<GError> error;
//     if (g_dbus_connection_flush_sync(bus, nullptr, out(error)) == FALSE) {
template<typename T>
GLibOut<T> out(GLibHolder<T>& holder) {
    return GLibOut<T>(holder);
}

} // namespace lectern
