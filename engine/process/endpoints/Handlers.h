// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/FileDescriptor.h"
#include "engine/layout/DocumentInformation.h"
#include "engine/process/endpoints/Wire.h"

#include <gio/gio.h>
#include <gio/gunixfdlist.h>

#include <cstdint>
#include <tuple>
#include <type_traits>

// Handlers of the generated skeletons' signals. Each runs an operation of the
// endpoint's document and completes the call with the operation's outputs.
namespace lectern::engine {

template<class... Types>
struct TypeList {};

// Splits an operation's parameters into inputs, which come first, and outputs,
// which are references to non-const types.
template<class Inputs, class... Parameters>
struct Sorted;
template<class... Inputs>
struct Sorted<TypeList<Inputs...>> {
    using In = TypeList<Inputs...>;
    using Out = std::tuple<>;
};
template<class... Inputs, class Output, class... Outputs>
requires(!std::is_const_v<Output>) struct Sorted<TypeList<Inputs...>, Output&, Outputs...> {
    using In = TypeList<Inputs...>;
    using Out = std::tuple<Output, std::remove_reference_t<Outputs>...>;
};
template<class... Inputs, class Input, class... Parameters>
struct Sorted<TypeList<Inputs...>, Input, Parameters...>
    : Sorted<TypeList<Inputs..., std::remove_cvref_t<Input>>, Parameters...> {};

template<class Operation>
struct Signature;
template<class Document, class... Parameters>
struct Signature<std::int32_t (Document::*)(Parameters...)> : Sorted<TypeList<>, Parameters...> {};

// Completes a call; `outputs` are in the protocol's types.
template<class Service, class Complete, class... Outputs>
gboolean answer(Service& service, Complete complete, typename Service::Skeleton* skeleton,
                GDBusMethodInvocation* invocation, std::int32_t result, Outputs... outputs) {
    std::apply([&](auto... more) { complete(skeleton, invocation, result, more..., outputs...); },
               service.afterResult());
    service.prepareWhenIdle();
    return TRUE;
}

template<class Service, auto Operation, auto Complete, class Inputs>
struct Handler;
template<class Service, auto Operation, auto Complete, class... Inputs>
struct Handler<Service, Operation, Complete, TypeList<Inputs...>> {
    static gboolean handle(typename Service::Skeleton* skeleton, GDBusMethodInvocation* invocation,
                           typename Wire<Inputs>::Type... inputs, gpointer user) {
        Service& service = *static_cast<Service*>(user);
        typename Signature<decltype(Operation)>::Out outputs{};
        const auto call = [&](auto&... output) {
            return service.run([&](typename Service::Document& document) {
                return (document.*Operation)(Wire<Inputs>::read(inputs)..., output...);
            });
        };
        const std::int32_t result = std::apply(call, outputs);
        return std::apply(
            [&](const auto&... output) {
                return answer(service, Complete, skeleton, invocation, result, written(output)...);
            },
            outputs);
    }
};

// Answers with the document's information.
template<class Service, auto Complete>
gboolean handleInformation(typename Service::Skeleton* skeleton, GDBusMethodInvocation* invocation,
                           gpointer user) {
    Service& service = *static_cast<Service*>(user);
    DocumentInformation information;
    const std::int32_t result =
        service.run([&](typename Service::Document& document) { return document.information(information); });
    return answer(service, Complete, skeleton, invocation, result, written(information.name),
                  written(information.author), written(information.description), information.created,
                  information.lastSaved);
}

// Sets the colour of later hits from three bytes.
template<class Service, auto Complete>
gboolean handleHighlightColor(typename Service::Skeleton* skeleton, GDBusMethodInvocation* invocation,
                              guchar red, guchar green, guchar blue, gpointer user) {
    Service& service = *static_cast<Service*>(user);
    const std::int32_t result = service.run([&](typename Service::Document& document) {
        return document.setHighlightColor({red, green, blue});
    });
    return answer(service, Complete, skeleton, invocation, result);
}

// The memory file that came with a call; invalid when there is none.
inline FileDescriptor fileOf(GUnixFDList* files, GVariant* handle) {
    return FileDescriptor(
        files == nullptr ? -1 : g_unix_fd_list_get(files, g_variant_get_handle(handle), nullptr));
}

// Opens a file of any name.
template<class Service, auto Complete>
gboolean handleOpenAny(typename Service::Skeleton* skeleton, GDBusMethodInvocation* invocation,
                       GUnixFDList* files, GVariant* progress, const gchar* path, const gchar* password,
                       gpointer user) {
    Service& service = *static_cast<Service*>(user);
    const FileDescriptor file = fileOf(files, progress);
    const std::int32_t result = service.openAny(file.get(), path, password);
    std::apply([&](auto... more) { Complete(skeleton, invocation, nullptr, result, more...); },
               service.afterResult());
    service.prepareWhenIdle();
    return TRUE;
}

// Connects handlers to an endpoint's skeleton; they answer its calls with the endpoint.
template<class Service>
class Connector {
public:
    Connector(typename Service::Skeleton* skeleton, Service* service)
        : mSkeleton(skeleton), mService(service) {}

    template<class Function>
    void handler(const char* signal, Function* function) const {
        g_signal_connect(mSkeleton, signal, G_CALLBACK(function), mService);
    }
    // Operation is a member function of the document, Complete the generated
    // function that sends its outputs.
    template<auto Operation, auto Complete>
    void operation(const char* signal) const {
        using Inputs = typename Signature<decltype(Operation)>::In;
        handler(signal, &Handler<Service, Operation, Complete, Inputs>::handle);
    }

private:
    typename Service::Skeleton* mSkeleton;
    Service* mService;
};

} // namespace lectern::engine
