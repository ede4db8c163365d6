// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/glib/DocumentFixture.h"

namespace {

using lectern::GLibHolder;
using lectern::out;

class Search : public DocumentTest {
protected:
    // Searches; returns the error.
    GLibHolder<GError> search(LecternSearchFlags flags = LECTERN_SEARCH_NONE) {
        Result result;
        lectern_document_search_async(mDocument.get(), "ferry", flags, nullptr, Result::take, &result);
        GLibHolder<GError> error;
        const bool found =
            lectern_document_search_finish(mDocument.get(), result.wait(), out(error)) != FALSE;
        EXPECT_EQ(found, error == nullptr);
        return error;
    }
    int hit() { return lectern_document_get_hit(mDocument.get()); }
    int hits() { return lectern_document_get_n_hits(mDocument.get()); }

    const Document mDocument = opened();
};

TEST_F(Search, TheHitIsKnownInTheCallback) {
    mFake.answer("/touch search", R"({"hit": 2, "hits": 5, "part": 3})");
    Emissions notified(mDocument.get(), "notify::hit");
    EXPECT_EQ(search(), nullptr);
    EXPECT_EQ(hit(), 2);
    EXPECT_EQ(hits(), 5);
    EXPECT_EQ(lectern_document_get_part(mDocument.get()), 3);
    EXPECT_EQ(notified.seen(), 1);
    EXPECT_EQ(sent("/touch search").string("search"), "ferry");
}

TEST_F(Search, FlagsAreSent) {
    mFake.answer("/touch search", R"({"hit": 0, "hits": 1, "part": 0})");
    search();
    EXPECT_EQ(sent("/touch search", 1).boolean("matchCase"), false);
    EXPECT_EQ(sent("/touch search", 1).boolean("wholeWords"), false);
    search(LECTERN_SEARCH_MATCH_CASE);
    EXPECT_EQ(sent("/touch search", 2).boolean("matchCase"), true);
    EXPECT_EQ(sent("/touch search", 2).boolean("wholeWords"), false);
    search(LECTERN_SEARCH_WHOLE_WORDS);
    EXPECT_EQ(sent("/touch search", 3).boolean("wholeWords"), true);
}

TEST_F(Search, NoHitIsAnErrorAndEndsTheLastOne) {
    mFake.answer("/touch search", R"({"hit": 0, "hits": 1, "part": 0})");
    search();
    for (const char* answer : {R"({"errorCode": "errNothingThere", "errorText": "nothing there"})",
                               R"({"hit": -1, "hits": 0, "part": 0})"}) {
        mFake.answer("/touch search", answer);
        const GLibHolder<GError> error = search();
        EXPECT_TRUE(g_error_matches(error.get(), LECTERN_SERVICE_ERROR, LECTERN_SERVICE_ERROR_NOTHING_THERE));
        EXPECT_EQ(hit(), -1);
        EXPECT_EQ(hits(), 0);
    }
}

TEST_F(Search, StepsMoveTheHit) {
    mFake.answer("/touch nextResult", R"({"hit": 3, "hits": 5, "part": 0})");
    mFake.answer("/touch previousResult", R"({"hit": 2, "hits": 5, "part": 0})");
    Result next;
    lectern_document_next_hit_async(mDocument.get(), nullptr, Result::take, &next);
    EXPECT_TRUE(lectern_document_next_hit_finish(mDocument.get(), next.wait(), nullptr));
    EXPECT_EQ(hit(), 3);
    Result previous;
    lectern_document_previous_hit_async(mDocument.get(), nullptr, Result::take, &previous);
    EXPECT_TRUE(lectern_document_previous_hit_finish(mDocument.get(), previous.wait(), nullptr));
    EXPECT_EQ(hit(), 2);
}

TEST_F(Search, SearchesWhileTheServiceDoes) {
    mFake.answer("/touch search", std::nullopt);
    const GLibHolder<GCancellable> cancellable(g_cancellable_new());
    Emissions notified(mDocument.get(), "notify::searching");
    Result result;
    lectern_document_search_async(mDocument.get(), "ferry", LECTERN_SEARCH_NONE, cancellable.get(),
                                  Result::take, &result);
    EXPECT_TRUE(lectern_document_get_searching(mDocument.get()));
    g_cancellable_cancel(cancellable.get());
    GLibHolder<GError> error;
    EXPECT_FALSE(lectern_document_search_finish(mDocument.get(), result.wait(), out(error)));
    EXPECT_TRUE(g_error_matches(error.get(), G_IO_ERROR, G_IO_ERROR_CANCELLED));
    EXPECT_FALSE(lectern_document_get_searching(mDocument.get()));
    EXPECT_EQ(notified.seen(), 2);
}

TEST_F(Search, ClosingItEndsTheHits) {
    mFake.answer("/touch search", R"({"hit": 2, "hits": 5, "part": 0})");
    search();
    Result closed;
    lectern_document_close_search_async(mDocument.get(), nullptr, Result::take, &closed);
    EXPECT_TRUE(lectern_document_close_search_finish(mDocument.get(), closed.wait(), nullptr));
    sent("/common closeSearch");
    EXPECT_EQ(hit(), -1);
    EXPECT_EQ(hits(), 0);
}

} // namespace
