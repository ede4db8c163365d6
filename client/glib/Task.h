// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/glib/DocumentObject.h"
#include "client/glib/Error.h"
#include "client/glib/Returned.h"
#include "client/glib/StopSource.h"

#include <memory>
#include <type_traits>

namespace lectern {

// Who made a call: the arguments of a function *_async, and the function itself.
struct Caller {
    template<typename Function>
    Caller(Function* async, GCancellable* toCancel, GAsyncReadyCallback onReady, gpointer data)
        : function(reinterpret_cast<gpointer>(async)), cancellable(toCancel), callback(onReady),
          userData(data) {}

    gpointer function;
    GCancellable* cancellable;
    GAsyncReadyCallback callback;
    gpointer userData;
};

// A call under way. Keeps the document. To be ended once, in the document's context; the
// callback then comes in the context of the caller.
class Task {
public:
    Task(LecternDocument* self, const Caller& caller)
        : mTask(g_task_new(self, caller.cancellable, caller.callback, caller.userData)),
          mStop(caller.cancellable) {
        g_task_set_source_tag(mTask.get(), caller.function);
    }

    LecternDocument* document() const { return LECTERN_DOCUMENT(g_task_get_source_object(mTask.get())); }
    std::stop_token stop() const { return mStop.token(); }

    // These end the call, and release the document: not by the destructor, which may run
    // on a thread of the document.
    void succeed() {
        const GLibHolder<GTask> task = std::move(mTask);
        g_task_return_boolean(task.get(), TRUE);
    }
    void succeed(const Returned& value) {
        const GLibHolder<GTask> task = std::move(mTask);
        g_task_return_pointer(task.get(), value.value, value.free);
    }
    void fail(const Error& error) {
        const GLibHolder<GTask> task = std::move(mTask);
        g_task_return_error(task.get(), toGError(error).release());
    }

private:
    GLibHolder<GTask> mTask;
    StopSource mStop;
};

inline std::shared_ptr<Task> startTask(LecternDocument* self, const Caller& caller) {
    return std::make_shared<Task>(self, caller);
}

// Fails the call when the document is not open.
bool requireOpen(Task& task);

// Makes a call whose value goes to the caller. finish(task, value): ends the call after
// its success.
template<typename Value, typename Finish>
void ask(LecternDocument* self, const Caller& caller, const Call<Value>& call, Finish finish) {
    const std::shared_ptr<Task> task = startTask(self, caller);
    if (requireOpen(*task)) {
        self->members->document->ask(call,
                                     [task, finish](const Result<Value>& result) {
                                         if (result) {
                                             finish(*task, *result);
                                         } else {
                                             task->fail(result.error());
                                         }
                                     },
                                     {.stop = task->stop()});
    }
}

template<typename Value>
void ask(LecternDocument* self, const Caller& caller, const Call<Value>& call) {
    ask(self, caller, call, [](Task& task, const Value& value) { task.succeed(returned(value)); });
}

// The same for calls without a value.
inline void end(Task& task, const Failure& failure) {
    failure ? task.fail(*failure) : task.succeed();
}

inline void ask(LecternDocument* self, const Caller& caller, const Call<void>& call) {
    const std::shared_ptr<Task> task = startTask(self, caller);
    if (requireOpen(*task)) {
        self->members->document->ask(call, [task](const Failure& failure) { end(*task, failure); },
                                     {.stop = task->stop()});
    }
}

// The work of a function *_finish: returns what the call has returned, or null or FALSE
// with an error.
template<typename Function>
bool isResultOf(LecternDocument* self, GAsyncResult* result, Function* async) {
    return g_task_is_valid(result, self) != FALSE &&
           g_task_get_source_tag(G_TASK(result)) == reinterpret_cast<gpointer>(async);
}

template<typename Function>
gboolean finish(LecternDocument* self, GAsyncResult* result, GError** error, Function* async) {
    g_return_val_if_fail(isResultOf(self, result, async), FALSE);
    return g_task_propagate_boolean(G_TASK(result), error);
}

template<typename Value, typename Function>
Value* finishValue(LecternDocument* self, GAsyncResult* result, GError** error, Function* async) {
    g_return_val_if_fail(isResultOf(self, result, async), nullptr);
    return static_cast<Value*>(g_task_propagate_pointer(G_TASK(result), error));
}

} // namespace lectern
