// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"
#include "engine/host/SharedSurface.h"
#include "engine/modules/Believable.h"
#include "engine/modules/DocumentHandle.h"

#include <gio/gio.h>
#include <gio/gunixfdlist.h>

#include <cstdint>
#include <memory>
#include <tuple>

namespace lectern::engine {

// One typed call of an interface of the handle's engine, `method` the generated
// function for it, and `outputs` addresses or out(holder). They are written
// whenever it was answered.
template<class Interface, class Method, class... Inputs, class... Outputs>
std::int32_t callInterface(DocumentHandle& handle, Interface* interface, Method method,
                           const std::tuple<Inputs...>& inputs, Outputs&&... outputs) {
    gint result = MODULE_FAILED;
    const std::int32_t sent = handle.call(Losses::callOf(method), [&](GError** error) {
        return std::apply(
            [&](auto... input) {
                return method(interface, input..., G_DBUS_CALL_FLAGS_NONE, G_MAXINT, &result, outputs...,
                              nullptr, error);
            },
            inputs);
    });
    return sent != MODULE_OK ? sent : codeFromEngine(result);
}

// Runs steps up to the first that fails; returns its code.
template<class... Steps>
std::int32_t inTurn(Steps... steps) {
    std::int32_t result = MODULE_OK;
    static_cast<void>((((result = steps()) == MODULE_OK) && ...));
    return result;
}

// Creates a surface and sends its memory to the handle's engine by `send`, which makes
// the typed call of the function `method`. Unless the result is MODULE_OK, the surface is null or must not be
// used.
template<class Method, class Send>
std::int32_t offerSurface(DocumentHandle& handle, std::int32_t width, std::int32_t height,
                          std::unique_ptr<SharedSurface>& surface, Method method, Send send) {
    surface = SharedSurface::make(width, height);
    if (!surface) {
        return MODULE_TOO_LARGE;
    }
    const GLibHolder<GUnixFDList> files(g_unix_fd_list_new());
    const int index = g_unix_fd_list_append(files.get(), surface->memory(), nullptr);
    if (index < 0) {
        return MODULE_FAILED;
    }
    surface->letGoMemory();
    gint result = MODULE_FAILED;
    const std::int32_t sent = handle.call(Losses::callOf(method), [&](GError** error) {
        return send(g_variant_new_handle(index), files.get(), &result, error);
    });
    return sent != MODULE_OK ? sent : codeFromEngine(result);
}

} // namespace lectern::engine
