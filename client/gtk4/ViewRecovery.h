// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/gtk4/RetryPauses.h"
#include "client/gtk4/ViewContext.h"

#include <functional>

namespace lectern::gtk4 {

// Opens the document again when its service has stopped or has lost it.
class ViewRecovery {
public:
    // onFailure: called when it has given up.
    ViewRecovery(ViewContext& context, std::function<void(const GError*)> onFailure);
    ~ViewRecovery();
    ViewRecovery(const ViewRecovery&) = delete;
    ViewRecovery& operator=(const ViewRecovery&) = delete;

    void reset();

private:
    void noteGone();
    void begin();
    void reopen();
    void reopened(GObject* source, GAsyncResult* result);

    ViewContext& mContext;
    std::function<void(const GError*)> mOnFailure;
    RetryPauses mPauses;
    guint mTimer = 0;
    bool mIsReopening = false;
    Pending mPending;
};

} // namespace lectern::gtk4
