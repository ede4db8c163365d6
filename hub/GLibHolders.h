// SPDX-License-Identifier: Apache-2.0
// Smart pointers that own GLib's reference-counted and allocated objects.
#pragma once

#include <gio/gio.h>

#include <memory>

namespace hub {

template<auto Release>
struct Releaser {
    template<typename T>
    void operator()(T* object) const {
        Release(object);
    }
};

template<typename T>
using ObjectPtr = std::unique_ptr<T, Releaser<&g_object_unref>>;
using VariantPtr = std::unique_ptr<GVariant, Releaser<&g_variant_unref>>;
using ErrorPtr = std::unique_ptr<GError, Releaser<&g_error_free>>;
using TextPtr = std::unique_ptr<char, Releaser<&g_free>>;
using ContextPtr = std::unique_ptr<GMainContext, Releaser<&g_main_context_unref>>;

} // namespace hub
