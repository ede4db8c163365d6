// SPDX-License-Identifier: Apache-2.0
// The category "/excel" on real views with a fake module: calls of views,
// replies and records, and their order.
#include "ServiceTest.h"
#include "excel/Excel.h"
#include "tests/fakes/sheet/FakeSheetModule.h"
#include "tests/unit/service/HeldByAnother.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::internal::CaptureStderr;
using testing::internal::CaptureStdout;
using testing::internal::GetCapturedStderr;
using testing::internal::GetCapturedStdout;

constexpr char NOT_EXCEL[] = R"({ "errorCode": "errWrongType", "errorText": "Not an Excel document" })";
const std::string REPLY_DONE = std::string("reply ") + DONE;
const std::string INVALIDATED = "message 0 0";

class ExcelMethodsTest : public ServiceTest {
protected:
    void SetUp() override {
        ServiceTest::SetUp();
        fakeSheet().reset();
    }
    // Opens a workbook; returns its docid.
    static int addBook(size_t sheets, const char* path = "/d/book.xls") {
        fakeSheet().sheets.resize(sheets);
        Documents record;
        record.view = std::make_unique<Excel>(320, 480, static_cast<int>(gDocuments.size()), 0);
        record.view->openFile(path, nullptr);
        gDocuments.push_back(std::move(record));
        fakeSheet().calls.clear();
        return static_cast<int>(gDocuments.size()) - 1;
    }
    static OfficeBase& book(size_t docid = 0) { return *gDocuments.at(docid).view; }
    // Selects columns by a stroke from x = 0 to 120.
    static void selectColumns() {
        book().handlePenDown(61, 10);
        book().handlePenUp(180, 10);
        takeMessages(static_cast<long>(book().dataStoreShmId()));
        fakeSheet().calls.clear();
    }
    // The effects of a call in order: "message ID VALUE" and "reply TEXT".
    std::vector<std::string> traceOf(const std::string& method,
                                     const std::string& payload = R"({"docid": 0})", size_t docid = 0) {
        std::vector<std::string> steps;
        const auto addMessages = [&] {
            for (const auto& m : takeMessages(static_cast<long>(book(docid).dataStoreShmId()))) {
                steps.push_back("message " + std::to_string(m.id) + " " + std::to_string(m.value));
            }
        };
        fakeHub.onReply = [&](const std::string& text) {
            EXPECT_EQ(pthread_mutex_trylock(&gDocumentsMutex), EBUSY) << "the registry is held";
            addMessages();
            steps.push_back("reply " + text);
        };
        call("/excel", method, payload);
        fakeHub.onReply = nullptr;
        addMessages();
        return steps;
    }
    static std::vector<std::string> methods() {
        return {"copySelection",  "getSheetList",    "jumpToSheet",    "getLastComment",
                "getColumnCount", "sortAscending",   "sortDescending", "resizeMode",
                "hideSelection",  "unhideSelection", "unhideAll"};
    }
    static bool needsMore(const std::string& method) {
        return method == "copySelection" || method == "jumpToSheet" || method == "resizeMode";
    }
    std::optional<std::string> callFully(const std::string& method, const std::string& docid) {
        return call("/excel", method,
                    R"({"column": "/none/at/all", "mode": "on", "sheet": 0, "docid": )" + docid + "}");
    }
    // A pixel of the cells as painted.
    static unsigned int paintedCell() {
        std::vector<unsigned int> frame(320 * 480, 0);
        book().setDirty();
        book().handlePaintRouter(frame.data());
        return frame[320 * 100 + 100];
    }
};

TEST_F(ExcelMethodsTest, ColumnCountIsAnswered) {
    addBook(1);
    EXPECT_THAT(traceOf("getColumnCount"), ElementsAre(R"(reply { "columncnt": 50 })"));
    EXPECT_THAT(fakeSheet().takeCalls(), IsEmpty());
}

TEST_F(ExcelMethodsTest, SheetListIsTheViewsText) {
    addBook(1);
    EXPECT_THAT(
        traceOf("getSheetList"),
        ElementsAre(R"(reply {"list": [{"data":"Sheet", "listitem":"1", "status":"images/check.png"}]})"));
}

TEST_F(ExcelMethodsTest, JumpRepliesAndThenInvalidates) {
    addBook(3);
    EXPECT_THAT(traceOf("jumpToSheet", R"({"docid": 0, "sheet": 2})"),
                ElementsAre(R"(reply { "cursheet": 2 })", INVALIDATED));
    EXPECT_THAT(fakeSheet().takeCalls(),
                ElementsAre("stg_get_comment_marks_rects(2)", "stg_get_column_count(2)"));
}

TEST_F(ExcelMethodsTest, JumpOutOfRangeIsAnsweredUnchanged) {
    addBook(1);
    for (const char* sheet : {"-1", "99", "2147483647", "-2147483648"}) {
        EXPECT_THAT(traceOf("jumpToSheet", std::string(R"({"docid": 0, "sheet": )") + sheet + "}"),
                    ElementsAre(std::string(R"(reply { "cursheet": )") + sheet + " }", INVALIDATED));
        EXPECT_THAT(traceOf("getColumnCount"), ElementsAre(R"(reply { "columncnt": 50 })"));
        paintedCell();
    }
}

TEST_F(ExcelMethodsTest, LastCommentIsTheViewsText) {
    addBook(1);
    fakeSheet().comments = {{{0, 0}, u"note"}};
    EXPECT_THAT(traceOf("getLastComment"), ElementsAre("reply "));
    call("/events", "handleClick", R"({"docid": 0, "xCoord": 70, "yCoord": 40})");
    takeMessages(static_cast<long>(book().dataStoreShmId()));
    EXPECT_THAT(traceOf("getLastComment"),
                ElementsAre(R"(reply { "comment": "note", "xcoord": 70, "ycoord": 40 })"));
}

TEST_F(ExcelMethodsTest, SortRepliesTheColumnAndThenInvalidates) {
    addBook(1);
    selectColumns();
    EXPECT_THAT(traceOf("sortAscending"), ElementsAre(R"(reply { "column": 1 })", INVALIDATED));
    EXPECT_EQ(fakeSheet().takeCalls().at(2), "stg_sort_ascending(0, 1)");
    EXPECT_THAT(traceOf("sortDescending"), ElementsAre(R"(reply { "column": 1 })", INVALIDATED));
    EXPECT_EQ(fakeSheet().takeCalls().at(2), "stg_sort_descending(0, 1)");
}

TEST_F(ExcelMethodsTest, FailedSortIsMinusOne) {
    addBook(1);
    fakeSheet().results["stg_sort_ascending"] = 4;
    EXPECT_THAT(traceOf("sortAscending"), ElementsAre(R"(reply { "column": -1 })", INVALIDATED));
}

TEST_F(ExcelMethodsTest, HidingInvalidatesBeforeTheReply) {
    addBook(1);
    selectColumns();
    EXPECT_THAT(traceOf("hideSelection"), ElementsAre(INVALIDATED, REPLY_DONE));
    EXPECT_THAT(traceOf("unhideSelection"), ElementsAre(INVALIDATED, REPLY_DONE));
    EXPECT_THAT(traceOf("unhideAll"), ElementsAre(INVALIDATED, REPLY_DONE));
    EXPECT_THAT(fakeSheet().takeCalls(),
                ElementsAre("stg_hide_columns(0, 1, 120)", "stg_unhide_columns(0, 1, 120)",
                            "stg_unhide_all_rows(0)", "stg_unhide_all_columns(0)"));
}

TEST_F(ExcelMethodsTest, CommandsBeforeAnySelectionAreAnswered) {
    addBook(1);
    EXPECT_THAT(traceOf("hideSelection"), ElementsAre(INVALIDATED, REPLY_DONE));
    EXPECT_THAT(fakeSheet().takeCalls(), ElementsAre("stg_hide_rows(0, 0, 0)"));
    EXPECT_THAT(traceOf("sortAscending"), ElementsAre(R"(reply { "column": 0 })", INVALIDATED));
    EXPECT_EQ(call("/excel", "copySelection", R"({"docid": 0, "column": ""})"), DONE);
}

TEST_F(ExcelMethodsTest, HidingHoldsTheViewsMutex) {
    addBook(1);
    // Kept until the next view loads the module again.
    static std::vector<int> locked;
    locked.clear();
    const auto note = [](void*, int32_t, int32_t, int32_t) {
        locked.push_back(pthread_mutex_trylock(book().mutex()));
        return 0;
    };
    STGFunc& module = Singleton<STGFunc>::Instance();
    module.stg_hide_rows = note;
    module.stg_unhide_rows = note;
    module.stg_unhide_all_rows = [](void*, int32_t) {
        locked.push_back(pthread_mutex_trylock(book().mutex()));
        return 0;
    };
    for (const char* method : {"hideSelection", "unhideSelection", "unhideAll"}) {
        callFully(method, "0");
    }
    EXPECT_THAT(locked, ElementsAre(EBUSY, EBUSY, EBUSY));
}

TEST_F(ExcelMethodsTest, ViewsMutexIsFreeAtTheReplyAndNotTakenByOthers) {
    addBook(1);
    {
        const HeldByAnother held(book().mutex());
        for (const std::string& method : methods()) {
            if (method.find("hide") == std::string::npos) {
                EXPECT_NE(callFully(method, "0"), std::nullopt) << method;
            }
        }
    }
    for (const char* method : {"hideSelection", "unhideSelection", "unhideAll"}) {
        fakeHub.onReply = [&](const std::string&) {
            EXPECT_EQ(pthread_mutex_trylock(book().mutex()), 0) << "free again at the reply";
            pthread_mutex_unlock(book().mutex());
        };
        callFully(method, "0");
    }
    fakeHub.onReply = nullptr;
}

TEST_F(ExcelMethodsTest, OnlyOnSwitchesResizeModeOn) {
    addBook(1);
    const unsigned int plain = paintedCell();
    for (const char* off : {"ON", "on ", " on", "off", "", "1", "onn", "o"}) {
        EXPECT_THAT(traceOf("resizeMode", R"({"docid": 0, "mode": "on"})"), ElementsAre(REPLY_DONE));
        EXPECT_NE(paintedCell(), plain) << "veiled";
        EXPECT_THAT(traceOf("resizeMode", std::string(R"({"docid": 0, "mode": ")") + off + "\"}"),
                    ElementsAre(REPLY_DONE));
        EXPECT_EQ(paintedCell(), plain) << off;
    }
}

TEST_F(ExcelMethodsTest, CopyWritesTheFileNamedByColumn) {
    addBook(1);
    char folder[] = "/tmp/excel-copy-XXXXXX";
    ASSERT_NE(mkdtemp(folder), nullptr);
    const std::string path = std::string(folder) + "/copy.txt";
    fakeSheet().selection = u"abcd";
    EXPECT_THAT(traceOf("copySelection", R"({"docid": 0, "column": ")" + path + "\"}"),
                ElementsAre(INVALIDATED, REPLY_DONE));
    EXPECT_EQ(std::filesystem::file_size(path), 4U);
    EXPECT_THAT(fakeSheet().takeCalls(), ElementsAre("stg_copy_selection(4096, 0)", "stg_clear_selection()"));
    std::filesystem::remove_all(folder);
}

TEST_F(ExcelMethodsTest, CopyToAPathThatCannotBeWrittenIsStillDone) {
    addBook(1);
    CaptureStdout();
    EXPECT_THAT(traceOf("copySelection", R"({"docid": 0, "column": "/none/at/all"})"),
                ElementsAre(INVALIDATED, REPLY_DONE));
    EXPECT_EQ(GetCapturedStdout(), "Excel::copySelection: fileptr is null");
}

TEST_F(ExcelMethodsTest, MissingParametersAreTold) {
    addBook(1);
    for (const std::string& method : methods()) {
        const char* text = needsMore(method) ? NO_PARAMETER_TEXT : NO_DOCID_TEXT;
        EXPECT_EQ(call("/excel", method, "{}"), text) << method;
        EXPECT_EQ(call("/excel", method, "no JSON"), text) << method;
        EXPECT_EQ(call("/excel", method, R"({"column": "x", "mode": "on", "sheet": 1})"), text) << method;
        if (needsMore(method)) {
            EXPECT_EQ(call("/excel", method, R"({"docid": 0})"), NO_PARAMETER_TEXT) << method;
            EXPECT_EQ(call("/excel", method, R"({"docid": 99})"), NO_PARAMETER_TEXT) << "before existence";
            EXPECT_EQ(call("/excel", method, R"({"docid": 0, "column": null, "mode": null, "sheet": null})"),
                      NO_PARAMETER_TEXT);
        }
    }
    EXPECT_EQ(waiting(), 0U);
    EXPECT_THAT(fakeSheet().takeCalls(), IsEmpty());
}

TEST_F(ExcelMethodsTest, DocumentsThatDoNotExistAreTold) {
    addBook(1);
    for (const char* docid : {"1", "-1", "2147483647", "-2147483648"}) {
        for (const std::string& method : methods()) {
            EXPECT_EQ(callFully(method, docid), NO_DOCUMENT) << method << docid;
        }
    }
}

TEST_F(ExcelMethodsTest, OtherKindsAreRefusedAndThatIsSaid) {
    addView(_PPT);
    addView(_WORD);
    for (const char* docid : {"0", "1"}) {
        for (const std::string& method : methods()) {
            CaptureStderr();
            EXPECT_EQ(callFully(method, docid), NOT_EXCEL) << method;
            EXPECT_EQ(GetCapturedStderr(), "Not an Excel document\n") << method;
        }
    }
    EXPECT_EQ(waiting(), 0U);
}

TEST_F(ExcelMethodsTest, JumpToSlideOnASheetIsRefused) {
    addBook(1);
    CaptureStderr();
    EXPECT_EQ(call("/ppt", "jumpToSlide", R"({"docid": 0, "slide": 1})"),
              R"({ "errorCode": "errWrongType", "errorText": "Not a PowerPoint document" })");
    EXPECT_EQ(GetCapturedStderr(), "Not a PowerPoint document\n");
}

TEST_F(ExcelMethodsTest, ParametersAreCheckedBeforeTheRegistryIsLocked) {
    const StuckRegistry stuck;
    for (const std::string& method : methods()) {
        EXPECT_EQ(call("/excel", method, "{}"), needsMore(method) ? NO_PARAMETER_TEXT : NO_DOCID_TEXT)
            << method;
    }
}

TEST_F(ExcelMethodsTest, WithoutTheRegistryThereIsNoReply) {
    addBook(1);
    const StuckRegistry stuck;
    for (const std::string& method : methods()) {
        CaptureStderr();
        EXPECT_EQ(callFully(method, "0"), std::nullopt) << method;
        EXPECT_EQ(GetCapturedStderr(), "Unable to acquire mutex: 35.");
    }
    EXPECT_THAT(fakeSheet().takeCalls(), IsEmpty());
}

TEST_F(ExcelMethodsTest, DocumentThatFailedToOpenIsAnswered) {
    addBook(1, "/d/code-5.xls");
    EXPECT_THAT(traceOf("getColumnCount"), ElementsAre(R"(reply { "columncnt": 0 })"));
    EXPECT_THAT(traceOf("getSheetList"), ElementsAre("reply "));
    EXPECT_THAT(traceOf("getLastComment"), ElementsAre("reply "));
    EXPECT_THAT(traceOf("jumpToSheet", R"({"docid": 0, "sheet": 4})"),
                ElementsAre(R"(reply { "cursheet": 4 })", INVALIDATED));
    EXPECT_THAT(traceOf("sortAscending"), ElementsAre(R"(reply { "column": -1 })", INVALIDATED));
    EXPECT_THAT(traceOf("sortDescending"), ElementsAre(R"(reply { "column": -1 })", INVALIDATED));
    for (const char* method : {"hideSelection", "unhideSelection", "unhideAll", "copySelection"}) {
        EXPECT_THAT(traceOf(method, R"({"docid": 0, "column": ""})"), ElementsAre(INVALIDATED, REPLY_DONE));
    }
    EXPECT_THAT(traceOf("resizeMode", R"({"docid": 0, "mode": "on"})"), ElementsAre(REPLY_DONE));
    EXPECT_THAT(fakeSheet().takeCalls(), IsEmpty());
}

} // namespace
