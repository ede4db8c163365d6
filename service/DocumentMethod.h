// SPDX-License-Identifier: Apache-2.0
// The way that all bus methods of a document go: parameters first, before any
// lock, then the registry's lock, then whether the document exists and is of the
// right kind, then what is done with it. The method tables say only in what the
// methods differ, a row each:
//
//     {"jumpToSheet", method<Excel, SheetNumber, ReplyNumber<CURRENT_SHEET, &Excel::jumpToSheet>,
//     Invalidate>, 0},
//
// that is the kind of view, the parameters, and the steps from there to the reply
// in the order in which they are taken, with the registry held all the time.
#pragma once

#include "service/BusCall.h"
#include "service/Parameters.h"
#include "service/Registry.h"
#include "view/JsonReply.h"

#include <cstdio>
#include <functional>
#include <tuple>
#include <type_traits>

// What a caller hears whose document is not a View; nothing for methods of all kinds.
template<typename View>
inline constexpr const char* WRONG_KIND = "";

// Runs operation() with the view's own mutex held.
template<typename Operation>
auto withViewLocked(OfficeBase& view, Operation operation) {
    MutexLock lock;
    lock.lock(view.mutex());
    return operation();
}

// Runs operation(view) with the registry held, or answers that there is no such
// document or that it is of another kind. No answer when the registry cannot be locked.
template<typename View, typename Operation>
void withDocument(BusCall& call, int docid, Operation operation) {
    const RegistryLock lock;
    if (!lock.held()) {
        return;
    }
    const auto index = static_cast<unsigned int>(docid);
    if (!DocumentExists(index)) {
        call.replyError(DOES_NOT_EXIST, "Document does not exist");
        return;
    }
    if (auto* view = dynamic_cast<View*>(gDocuments[index].view.get())) {
        operation(*view);
        return;
    }
    std::fprintf(stderr, "%s\n", WRONG_KIND<View>);
    call.replyError(WRONG_TYPE, WRONG_KIND<View>);
}

// The handler of a method.
template<typename View, typename Parameters, typename... Steps>
bool method(HubHandle* handle, HubMessage* message, void* /*data*/) {
    BusCall call(handle, message);
    Parameters parameters;
    if (parameters.read(call)) {
        withDocument<View>(call, parameters.docid,
                           [&](View& view) { (Steps::take(call, view, parameters.values()), ...); });
    }
    return true;
}

// The steps. An operation is a function of the view, or one that takes the view
// first, and is called with the values of the parameters.

template<auto operation>
struct Call {
    template<typename View, typename Values>
    static auto take(BusCall& /*call*/, View& view, const Values& values) {
        return std::apply([&](auto... value) { return std::invoke(operation, view, value...); }, values);
    }
};

// Calls an operation with the view's own mutex held.
template<auto operation>
struct CallLocked {
    template<typename View, typename Values>
    static auto take(BusCall& call, View& view, const Values& values) {
        return withViewLocked(view, [&] { return Call<operation>::take(call, view, values); });
    }
};

// Replies the text that an operation makes.
template<auto operation>
struct ReplyText {
    template<typename View, typename Values>
    static void take(BusCall& call, View& view, const Values& values) {
        call.reply(Call<operation>::take(call, view, values));
    }
};

// Replies {key: the number that an operation gives}.
template<const char* key, auto operation>
struct ReplyNumber {
    template<typename View, typename Values>
    static void take(BusCall& call, View& view, const Values& values) {
        call.reply(formatSimpleJsonObject(key, Call<operation>::take(call, view, values)));
    }
};

struct ReplyDone {
    template<typename Values>
    static void take(BusCall& call, OfficeBase& /*view*/, const Values& /*values*/) {
        call.replyDone();
    }
};

// Asks the client for a paint.
struct Invalidate {
    template<typename Values>
    static void take(BusCall& /*call*/, OfficeBase& view, const Values& /*values*/) {
        view.InvalidateScreen();
    }
};
