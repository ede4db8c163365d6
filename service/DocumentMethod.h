// SPDX-License-Identifier: Apache-2.0
// The common course of all bus methods of a document: read the parameters before
// taking any lock, lock the registry, check that the document exists and is of
// the right kind, then run the method's steps. The method tables state only the
// differences, one row per method:
//
//     {"jumpToSheet", method<Excel, SheetNumber, ReplyNumber<CURRENT_SHEET, &Excel::jumpToSheet>,
//     Invalidate>, 0},
//
// that is the class of the view, the parameters, and the steps in the order in
// which they run. The registry stays locked during all of them, and the document claimed.
#pragma once

#include "service/BusCall.h"
#include "service/Parameters.h"
#include "service/Registry.h"
#include "view/JsonReply.h"

#include <cstdio>
#include <functional>
#include <tuple>
#include <type_traits>

// The error text for a document that is not a View. Empty for methods that work
// on every kind.
template<typename View>
inline constexpr const char* WRONG_KIND = "";

// Runs operation() with the view's own mutex locked and returns its result.
template<typename Operation>
auto withViewLocked(OfficeBase& view, Operation operation) {
    MutexLock lock;
    lock.lock(view.mutex());
    return operation();
}

// Runs operation(view) with the registry locked. Replies with an error if the
// document does not exist or is of another kind. If the registry cannot be
// locked, sends no reply.
template<typename View, typename Operation>
void withDocument(BusCall& call, int docid, Operation operation) {
    RegistryLock lock;
    if (!lock.held()) {
        return;
    }
    const Documents* document = UseDocument(lock, static_cast<unsigned int>(docid));
    if (document == nullptr && IsOpening(static_cast<unsigned int>(docid))) {
        call.replyError(NOT_OPEN, NOT_OPEN_TEXT);
        return;
    }
    if (document == nullptr) {
        call.replyError(DOES_NOT_EXIST, NO_DOCUMENT_TEXT);
        return;
    }
    if (auto* view = dynamic_cast<View*>(document->view.get())) {
        operation(*view);
        document->view->tellLoss();
        return;
    }
    std::fprintf(stderr, "%s\n", WRONG_KIND<View>);
    call.replyError(WRONG_TYPE, WRONG_KIND<View>);
}

// The handler of a method. Always returns true.
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

// The steps. An operation is a member function of the view, or a function whose
// first parameter is the view. It is called with the values of the parameters.

template<auto operation>
struct Call {
    template<typename View, typename Values>
    static auto take(BusCall& /*call*/, View& view, const Values& values) {
        return std::apply([&](auto... value) { return std::invoke(operation, view, value...); }, values);
    }
};

// Calls an operation with the view's own mutex locked.
template<auto operation>
struct CallLocked {
    template<typename View, typename Values>
    static auto take(BusCall& call, View& view, const Values& values) {
        return withViewLocked(view, [&] { return Call<operation>::take(call, view, values); });
    }
};

// Replies with the text that an operation returns.
template<auto operation>
struct ReplyText {
    template<typename View, typename Values>
    static void take(BusCall& call, View& view, const Values& values) {
        call.reply(Call<operation>::take(call, view, values));
    }
};

// Replies {key: number} with the number that an operation returns.
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

// Marks the view changed and tells the client to request a paint.
struct Invalidate {
    template<typename Values>
    static void take(BusCall& /*call*/, OfficeBase& view, const Values& /*values*/) {
        view.InvalidateScreen();
    }
};
