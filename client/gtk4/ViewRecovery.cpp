// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/ViewRecovery.h"

#include <utility>

namespace lectern::gtk4 {

ViewRecovery::ViewRecovery(ViewContext& context, std::function<void(const GError*)> onFailure)
    : mContext(context), mOnFailure(std::move(onFailure)) {
    mContext.onDocument("notify::gone", G_CALLBACK(onSignal<&ViewRecovery::noteGone>), this);
    mContext.onDocument("lost", G_CALLBACK(onSignal<&ViewRecovery::begin>), this);
}

ViewRecovery::~ViewRecovery() {
    reset();
}

void ViewRecovery::reset() {
    mPending.giveUp();
    mIsReopening = false;
    mPauses.startAgain();
    if (mTimer != 0) {
        g_source_remove(std::exchange(mTimer, 0));
    }
}

void ViewRecovery::noteGone() {
    if (lectern_document_get_gone(mContext.document()) != FALSE) {
        begin();
    }
}

void ViewRecovery::begin() {
    if (!mIsReopening && mTimer == 0) {
        mPauses.startAgain();
        reopen();
    }
}

void ViewRecovery::reopen() {
    mIsReopening = true;
    lectern_document_reopen_async(mContext.document(), mPending.get(), asyncDone<&ViewRecovery::reopened>,
                                  this);
}

void ViewRecovery::reopened(GObject* source, GAsyncResult* result) {
    mIsReopening = false;
    GLibHolder<GError> error;
    if (lectern_document_reopen_finish(LECTERN_DOCUMENT(source), result, out(error)) != FALSE) {
        return;
    }
    // A document that has changed or is broken will not become better by waiting.
    const bool isHopeless = error && error->domain == LECTERN_DOCUMENT_ERROR;
    const auto pause = isHopeless ? std::nullopt : mPauses.next();
    if (!pause) {
        mOnFailure(error.get());
        return;
    }
    const auto retry = [](gpointer self) -> gboolean {
        auto* recovery = static_cast<ViewRecovery*>(self);
        recovery->mTimer = 0;
        recovery->reopen();
        return G_SOURCE_REMOVE;
    };
    mTimer = g_timeout_add(static_cast<guint>(pause->count()), retry, this);
}

} // namespace lectern::gtk4
