// SPDX-License-Identifier: Apache-2.0
// Opens, reopens, resizes, and the ends of documents.
#include "modules/ModuleResults.h"
#include "tests/unit/glib/DocumentFixture.h"

#include <filesystem>

namespace {

using lectern::GLibHolder;
using lectern::out;

class Life : public DocumentTest {};

TEST_F(Life, ANewDocumentHasWhatItWasGiven) {
    const Document document = make("/folder/letter.docx");
    g_object_set(document.get(), "dpi", 264.0, "kind", LECTERN_DOCUMENT_KIND_TEXT, nullptr);
    EXPECT_EQ(lectern_document_get_service(document.get()), mService.get());
    EXPECT_STREQ(lectern_document_get_title(document.get()), "letter.docx");
    EXPECT_EQ(lectern_document_get_width(document.get()), 48);
    EXPECT_EQ(lectern_document_get_height(document.get()), 80);
    EXPECT_FALSE(lectern_document_get_opened(document.get()));
    EXPECT_EQ(open(document), nullptr);
    const lectern::JsonMembers request = sent("/events create");
    EXPECT_EQ(request.string("filename"), "/folder/letter.docx");
    EXPECT_EQ(request.string("manners"), "touch");
    EXPECT_EQ(request.real("dpi"), 264.0);
    EXPECT_EQ(request.string("kind"), "word");
    EXPECT_EQ(request.integer("width"), 48);
}

TEST_F(Life, NothingIsIsolatedWhereTheSessionHasTheService) {
    const auto ipcNamespace = [] { return std::filesystem::read_symlink("/proc/thread-self/ns/ipc"); };
    const auto before = ipcNamespace();
    EXPECT_TRUE(lectern_service_isolate(nullptr));
    EXPECT_EQ(ipcNamespace(), before);
    EXPECT_FALSE(lectern_service_is_private(mService.get()));
}

TEST_F(Life, AConnectionCanBeAwaited) {
    Result result;
    lectern_service_connect_async(nullptr, Result::take, &result);
    const GLibHolder<LecternService> service(lectern_service_connect_finish(result.wait(), nullptr));
    ASSERT_NE(service, nullptr);
    gboolean isPrivate = TRUE;
    g_object_get(service.get(), "private", &isPrivate, nullptr);
    EXPECT_FALSE(isPrivate);
}

TEST_F(Life, AnOpenedDocumentKnowsItsView) {
    const Document document = opened();
    EXPECT_TRUE(lectern_document_get_opened(document.get()));
    EXPECT_EQ(lectern_document_get_kind(document.get()), LECTERN_DOCUMENT_KIND_TEXT);
    EXPECT_EQ(lectern_document_get_progress(document.get()), 100);
    EXPECT_EQ(lectern_document_get_document_width(document.get()), 100);
    EXPECT_EQ(lectern_document_get_document_height(document.get()), 5'000'000'000);
    EXPECT_EQ(lectern_document_get_visible_width(document.get()), 48);
    EXPECT_EQ(lectern_document_get_zoom(document.get()), 1.5);
    EXPECT_EQ(lectern_document_get_smallest_zoom(document.get()), 0.25);
    EXPECT_EQ(lectern_document_get_largest_zoom(document.get()), 8.0);
    EXPECT_EQ(lectern_document_get_fit_zoom(document.get()), 1.25);
    EXPECT_EQ(lectern_document_get_n_parts(document.get()), 1);
    EXPECT_EQ(lectern_document_get_hit(document.get()), -1);
}

TEST_F(Life, TheTitleIsThatOfTheDocument) {
    mFake.answer("/common getDocProperties", R"({"name": "A letter"})");
    const Document document = make();
    Emissions changes(document.get(), "notify::title");
    ASSERT_EQ(open(document), nullptr);
    changes.waitFor(1);
    EXPECT_STREQ(lectern_document_get_title(document.get()), "A letter");
}

TEST_F(Life, AFailedOpenCanBeRepeatedWithAPassword) {
    const Document document = make();
    mFake.openResult(MODULE_NEEDS_PASSWORD);
    Emissions opening(document.get(), "notify::opening");
    const GLibHolder<GError> error = open(document);
    EXPECT_TRUE(g_error_matches(error.get(), LECTERN_DOCUMENT_ERROR, LECTERN_DOCUMENT_ERROR_NEEDS_PASSWORD));
    EXPECT_FALSE(lectern_document_get_opening(document.get()));
    EXPECT_EQ(opening.seen(), 2);
    EXPECT_FALSE(lectern_document_get_opened(document.get()));
    mFake.openResult(0);
    EXPECT_EQ(open(document, "secret"), nullptr);
    EXPECT_EQ(sent("/events create", 2).string("password"), "secret");
    EXPECT_TRUE(lectern_document_get_opened(document.get()));
}

TEST_F(Life, TheCallbackOfTheOpenMayFreeTheDocument) {
    Document document = make();
    const auto release = [](GObject*, GAsyncResult*, gpointer own) { static_cast<Document*>(own)->reset(); };
    lectern_document_open_async(document.get(), nullptr, nullptr, +release, &document);
    iterateUntil([&] { return document == nullptr; });
    mFake.waitForCall("/events destroy");
}

TEST_F(Life, ASecondOpenFails) {
    const Document document = opened();
    const GLibHolder<GError> error = open(document);
    EXPECT_TRUE(g_error_matches(error.get(), LECTERN_SERVICE_ERROR, LECTERN_SERVICE_ERROR_ARGUMENT));
}

TEST_F(Life, CallsFailBeforeTheOpen) {
    const Document document = make();
    Result result;
    lectern_document_get_text_async(document.get(), nullptr, Result::take, &result);
    EXPECT_FALSE(result.isThere()) << "a callback never comes inside the call";
    GLibHolder<GError> error;
    EXPECT_EQ(lectern_document_get_text_finish(document.get(), result.wait(), out(error)), nullptr);
    EXPECT_TRUE(g_error_matches(error.get(), LECTERN_SERVICE_ERROR, LECTERN_SERVICE_ERROR_NOT_OPEN));
}

TEST_F(Life, FilesElsewhereDoNotOpen) {
    const GLibHolder<GFile> file(g_file_new_for_uri("https://host/letter.docx"));
    const Document document(lectern_document_new(mService.get(), file.get()));
    const GLibHolder<GError> error = open(document);
    EXPECT_TRUE(g_error_matches(error.get(), LECTERN_SERVICE_ERROR, LECTERN_SERVICE_ERROR_ARGUMENT));
}

TEST_F(Life, ACancelledOpenEnds) {
    mFake.sendsOpened(false);
    const Document document = make();
    const GLibHolder<GCancellable> cancellable(g_cancellable_new());
    Result result;
    lectern_document_open_async(document.get(), nullptr, cancellable.get(), Result::take, &result);
    mFake.waitForCall("/events create");
    g_cancellable_cancel(cancellable.get());
    GLibHolder<GError> error;
    EXPECT_FALSE(lectern_document_open_finish(document.get(), result.wait(), out(error)));
    EXPECT_TRUE(g_error_matches(error.get(), G_IO_ERROR, G_IO_ERROR_CANCELLED));
    mFake.waitForCall("/events destroy");
}

TEST_F(Life, ADocumentClosesWhenItIsFreed) {
    Document document = opened();
    EXPECT_EQ(G_OBJECT(document.get())->ref_count, 1U);
    document.reset();
    mFake.waitForCall("/events destroy");
}

TEST_F(Life, ACallUnderWayKeepsTheDocument) {
    Document document = opened();
    GWeakRef weak;
    g_weak_ref_init(&weak, document.get());
    mFake.answer("/touch getText", std::nullopt);
    const GLibHolder<GCancellable> cancellable(g_cancellable_new());
    Result result;
    lectern_document_get_text_async(document.get(), cancellable.get(), Result::take, &result);
    mFake.waitForCall("/touch getText");
    LecternDocument* unowned = document.get();
    document.reset();
    g_cancellable_cancel(cancellable.get());
    GLibHolder<GError> error;
    EXPECT_EQ(lectern_document_get_text_finish(unowned, result.wait(), out(error)), nullptr);
    EXPECT_TRUE(g_error_matches(error.get(), G_IO_ERROR, G_IO_ERROR_CANCELLED));
    result = Result();
    iterateUntil([&] { return GLibHolder<GObject>(G_OBJECT(g_weak_ref_get(&weak))) == nullptr; });
    g_weak_ref_clear(&weak);
    mFake.waitForCall("/events destroy");
}

TEST_F(Life, ADocumentIsGoneWithTheServiceAndComesBack) {
    const Document document = opened();
    Emissions gone(document.get(), "notify::gone");
    mFake.vanish();
    gone.waitFor(1);
    EXPECT_TRUE(lectern_document_get_gone(document.get()));
    Result painted;
    lectern_document_paint_async(document.get(), nullptr, Result::take, &painted);
    GLibHolder<GError> error;
    EXPECT_FALSE(lectern_document_paint_finish(document.get(), painted.wait(), nullptr, out(error)));
    EXPECT_TRUE(g_error_matches(error.get(), LECTERN_SERVICE_ERROR, LECTERN_SERVICE_ERROR_GONE));

    mFake.comeBack();
    Emissions invalidated(document.get(), "invalidated");
    Result reopened;
    lectern_document_reopen_async(document.get(), nullptr, Result::take, &reopened);
    EXPECT_TRUE(lectern_document_reopen_finish(document.get(), reopened.wait(), nullptr));
    EXPECT_FALSE(lectern_document_get_gone(document.get()));
    EXPECT_EQ(gone.seen(), 2);
    EXPECT_EQ(invalidated.seen(), 1);
}

} // namespace
