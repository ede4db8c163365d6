// SPDX-License-Identifier: Apache-2.0
// A random reader with touch manners on the real module: every frame is compared with a
// picture of the whole text, so nothing is white or beside its place.
#include "channel/ServiceQueue.h"
#include "tests/system/module/ModuleView.h"
#include "tests/unit/view/Notifications.h"
#include "touch/Clock.h"
#include "touch/TouchWord.h"

#include <algorithm>
#include <cstdio>
#include <random>

namespace lectern::test {
namespace {

constexpr std::int32_t MOST_ROWS = 16384; // of a buffer
constexpr int DPI = 72;

double gTime = 1000.0;

class Reader {
public:
    Reader(const std::string& path, int width, int height, unsigned seed)
        : mRandom(seed), mWidth(width), mHeight(height), mView(width, height, 0, 0, DPI),
          mWhole(path, width, MOST_ROWS) {
        EXPECT_EQ(mView.openFile(path.c_str(), nullptr), 0);
        EXPECT_LT(mWhole.rows(), MOST_ROWS);
        knowHeight();
    }

    void play(int operations) {
        for (int i = 0; i < operations && !testing::Test::HasFailure(); i++) {
            switch (number(0, 7)) {
            case 0:
                drag();
                break;
            case 1:
                fling();
                break;
            case 2:
                pinch();
                break;
            case 3:
                mView.handleDoubleClick(number(0, mWidth - 1), number(0, mHeight - 1));
                limitZoom();
                atPaint("a double tap");
                break;
            case 4:
                zooms();
                break;
            case 5:
                mView.resize(mHeight, mWidth);
                std::swap(mWidth, mHeight);
                atPaint("a turn");
                break;
            case 6:
                search();
                break;
            default:
                mView.scrollTo(0, number(-100, static_cast<int>(mView.place().documentHeight)));
                atPaint("a far move");
                break;
            }
        }
    }

    void visitEnds() {
        mView.zoomTo(1.0, mView.middle());
        for (const int way : {1, -1}) {
            int last = -1;
            while (mView.place().view.Top() != last) {
                last = mView.place().view.Top();
                mView.handlePenDown(0, 0);
                mView.handlePenMove(0, -way * mHeight);
                mView.handlePenUp(0, -way * mHeight);
                atPaint("going to the ends");
            }
            const int end = std::max(0, static_cast<int>(mView.place().documentHeight) - mHeight);
            EXPECT_EQ(last, way > 0 ? end : 0);
        }
    }

private:
    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(mRandom); }

    // The engine lays out the rest of a text while nobody waits.
    void knowHeight() {
        gTime += 1.0;
        mView.scrollTo(0, 1 << 30);
        mView.scrollTo(0, 0);
    }

    void limitZoom() {
        if (mView.place().zoom > 2.0) {
            mView.zoomTo(2.0, mView.middle());
        }
    }

    void showWhole() {
        const int dpi = static_cast<int>(mView.place().zoom * DPI);
        if (mWhole.width() != mWidth || mDpi != dpi) {
            mDpi = dpi;
            mWhole.resize(mWidth, MOST_ROWS, dpi);
        }
    }

    void atPaint(const std::string& what) {
        g_msgQueue.Drain(); // nobody reads the notifications
        std::vector<std::uint32_t> frame(static_cast<std::size_t>(mWidth) *
                                         static_cast<std::size_t>(mHeight));
        mView.setDirty();
        mView.handlePaintRouter(frame.data());
        showWhole();
        const int top = mView.place().view.Top();
        const int rows = mWhole.rows();
        ASSERT_TRUE(top >= 0 && (top <= rows - mHeight || top == 0)) << what;
        ASSERT_LE(top + mHeight, MOST_ROWS);
        const auto first = mWhole.pixels().begin() + std::ptrdiff_t{top} * mWidth;
        for (int y = 0; y < std::min(mHeight, rows - top); y++) {
            const auto line = frame.begin() + std::ptrdiff_t{y} * mWidth;
            ASSERT_TRUE(std::equal(line, line + mWidth, first + std::ptrdiff_t{y} * mWidth))
                << "row " << y << " after " << what << " at zoom " << mView.place().zoom << ", top " << top;
        }
    }

    void drag() {
        const int from = mView.place().view.Top();
        const int end = std::max(0, static_cast<int>(mView.place().documentHeight) - mHeight);
        const int start = number(0, mHeight - 1);
        mView.handlePenDown(50, start);
        for (int i = 0; i < 5; i++) {
            const int y = number(-mHeight / 2, mHeight * 3 / 2);
            mView.handlePenMove(60, y);
            atPaint("a drag");
            ASSERT_EQ(mView.place().view.Top(), std::clamp(from + start - y, 0, end));
        }
        mView.handlePenUp(60, 0);
    }

    void fling() {
        mView.handleFlick(0, number(-4000, 4000));
        for (int i = 0; i < 200 && mView.place().isMoving; i++) {
            gTime += 0.05;
            atPaint("a glide");
        }
    }

    void pinch() {
        const int x = number(0, mWidth - 1);
        const int y = number(0, mHeight - 1);
        const float factor = static_cast<float>(number(40, 200)) / 100.0F;
        ClientServerMessage record(_PINCH, 0);
        record.x = x;
        record.y = y;
        record.setPinch(1.0F, _PINCH_BEGINS);
        mView.handleRecord(record);
        record.setPinch(factor, _PINCH_ENDS);
        mView.handleRecord(record);
        limitZoom();
        atPaint("a pinch");
    }

    void zooms() {
        mView.scrollTo(0, mView.place().view.Top() + 1);
        const double zoom = mView.place().zoom;
        const int top = mView.place().view.Top();
        for (int i = 0; i < 4; i++) {
            mView.zoomTo(number(50, 200) / 100.0, mView.middle());
            atPaint("a zoom");
        }
        mView.zoomTo(zoom, mView.middle());
        atPaint("zooms");
        ASSERT_EQ(mView.place().view.Top(), top);
    }

    void search() {
        HitPlace hit;
        ASSERT_EQ(mView.search("needle", {}, hit), TouchResult::Ok);
        for (int i = 0; i < 4; i++) {
            const int before = hit.hit;
            ASSERT_EQ(mView.stepToHit(i < 3 ? 1 : -1, hit), TouchResult::Ok);
            ASSERT_EQ(hit.hit, (before + (i < 3 ? 1 : -1) + hit.hits) % hit.hits);
        }
        mView.stopFind();
        atPaint("a search");
    }

    std::mt19937 mRandom;
    int mWidth;
    int mHeight;
    TouchWord mView;
    ModuleView mWhole;
    int mDpi = DPI;
};

class TouchWordPlayTest : public NotifiedTest {
protected:
    void SetUp() override {
        NotifiedTest::SetUp();
        setTouchClock([] { return gTime; });
    }
    void TearDown() override {
        setTouchClock(nullptr);
        NotifiedTest::TearDown();
    }

    static void play(const std::string& path, int width, int height, unsigned seed) {
        testing::internal::CaptureStdout();
        {
            Reader reader(path, width, height, seed);
            reader.play(15);
            if (!HasFailure()) {
                reader.visitEnds();
            }
        }
        const std::string output = testing::internal::GetCapturedStdout();
        if (HasFailure()) {
            std::fputs(output.c_str(), stdout);
        }
    }
};

TEST_F(TouchWordPlayTest, EveryFrameShowsTheTextWhereItIs) {
    const std::string path = longDocument(3, "needle", 9);
    play(path, 360, 640, 1);
    play(path, 768, 1024, 2);
}

TEST_F(TouchWordPlayTest, ATableStaysAtItsPlaceToo) {
    TouchWord view(360, 640, 0, 0, DPI);
    ASSERT_EQ(view.openFile(generated("make_wide_table_docx.py", {"OUT"}).c_str(), nullptr), 0);
    ASSERT_EQ(view.goTo(2), TouchResult::Ok);
    const int top = view.place().view.Top();
    for (int i = 0; i < 3; i++) {
        view.handleDoubleClick(150, 200);
        EXPECT_LT(view.place().zoom, 0.95) << "the table is shown whole";
        view.handleDoubleClick(150, 200);
        EXPECT_DOUBLE_EQ(view.place().zoom, 1.0);
    }
    EXPECT_EQ(view.place().view.Top(), top);
}

} // namespace
} // namespace lectern::test
