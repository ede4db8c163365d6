// SPDX-License-Identifier: Apache-2.0
// Documents that nobody uses rest after a time, which is short in this program.
#include "service/Resting.h"

#include "ClientSide.h"
#include "service/RenderWorker.h"

#include <glib.h>

#include <cstdlib>

namespace {

// Before the service reads it, once.
[[maybe_unused]] const int shortTime = setenv("LECTERN_REST_AFTER_MS", "30", 1);

class RestingTest : public ClientSideTest {
protected:
    // Runs the main loop until the document rests; false after 10 s.
    bool rests(int docid) {
        bool waiting = true;
        const guint limit = g_timeout_add(
            10000,
            [](void* data) -> gboolean {
                *static_cast<bool*>(data) = false;
                return G_SOURCE_CONTINUE;
            },
            &waiting);
        while (waiting && !view(docid).isResting()) {
            g_main_context_iteration(nullptr, TRUE);
        }
        g_source_remove(limit);
        return view(docid).isResting();
    }
    // Whether the main loop will wake by itself.
    static bool hasTimer() {
        gint priority = 0;
        gint timeout = -1;
        GMainContext* const context = g_main_context_default();
        EXPECT_TRUE(g_main_context_acquire(context));
        g_main_context_prepare(context, &priority);
        g_main_context_query(context, G_MAXINT, &timeout, nullptr, 0);
        g_main_context_release(context);
        return timeout >= 0;
    }
    void use(int docid) { EXPECT_TRUE(serveMessage(ClientServerMessage(_KEY_UP, docid))); }
};

TEST_F(RestingTest, ADocumentRestsAfterItsLastUse) {
    const int docid = addView();
    use(docid);
    EXPECT_FALSE(view(docid).isResting());
    EXPECT_TRUE(hasTimer());
    EXPECT_TRUE(rests(docid));
}

TEST_F(RestingTest, NoTimerRunsWhileAllDocumentsRest) {
    const int first = addView();
    const int second = addView();
    use(first);
    use(second);
    EXPECT_TRUE(rests(first));
    EXPECT_TRUE(rests(second));
    EXPECT_FALSE(hasTimer());
}

TEST_F(RestingTest, ARecordWakesItAndItRestsAgain) {
    const int docid = addView();
    use(docid);
    ASSERT_TRUE(rests(docid));
    use(docid);
    EXPECT_FALSE(view(docid).isResting());
    EXPECT_TRUE(rests(docid));
}

TEST_F(RestingTest, ABusMethodWakesIt) {
    const int docid = addView();
    use(docid);
    ASSERT_TRUE(rests(docid));
    call("/common", "closeSearch", "{\"docid\": " + std::to_string(docid) + "}");
    EXPECT_FALSE(view(docid).isResting());
}

TEST_F(RestingTest, UsesOfOthersDoNotWakeIt) {
    const int docid = addView();
    const int other = addView();
    use(docid);
    ASSERT_TRUE(rests(docid));
    use(other);
    EXPECT_TRUE(view(docid).isResting());
    EXPECT_TRUE(rests(other));
}

TEST_F(RestingTest, ADestroyedDocumentNeedsNoTimer) {
    const int docid = addView();
    addView();
    use(docid);
    doDestroy(docid);
    while (hasTimer()) {
        g_main_context_iteration(nullptr, TRUE);
    }
}

} // namespace
