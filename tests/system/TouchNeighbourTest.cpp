// SPDX-License-Identifier: Apache-2.0
// Views with touch manners do not change the views of other clients: the frames, records,
// states and replies of these are byte for byte as without them.
#include "tests/system/support/ServiceFixture.h"

#include <array>
#include <cstring>

namespace {

constexpr int WIDTH = 480;
constexpr int HEIGHT = 800;
constexpr int STATE_SIZE = 28;

// One input of a client, for the document with this number. Returns the reply of a call.
using Input = std::function<std::string(BusConnection&, Queue&, int docid)>;

Input call(const std::string& category, const std::string& method, const std::string& more = "") {
    return [=](BusConnection& bus, Queue&, int docid) {
        return bus.call(category, method, "{\"docid\": " + std::to_string(docid) + more + "}").text;
    };
}

Input pointer(const std::string& method, int x, int y) {
    return call("/events", method,
                ", \"xCoord\": " + std::to_string(x) + ", \"yCoord\": " + std::to_string(y));
}

Input key(char letter) {
    return call("/events", "handleKeyDown", ", \"modifiers\": 0, \"chr\": " + std::to_string(letter));
}

Input gesture(long type, double scale) {
    return [=](BusConnection&, Queue& queue, int docid) {
        EXPECT_TRUE(queue.postGesture(type, docid, scale));
        queue.awaitTaken();
        return std::string();
    };
}

// Records that only touch views hear.
Input touchRecord(long type, int x, int y, float factor = 0, int32_t phase = 0) {
    return [=](BusConnection&, Queue& queue, int docid) {
        std::vector<unsigned char> text(20);
        std::memcpy(&text[0], &docid, 4);
        std::memcpy(&text[4], &x, 4);
        std::memcpy(&text[8], &y, 4);
        std::memcpy(&text[12], &factor, 4);
        std::memcpy(&text[16], &phase, 4);
        EXPECT_TRUE(queue.postRaw(type, text));
        queue.awaitTaken();
        return std::string();
    };
}

std::vector<Input> inputs(const std::string& kind) {
    std::vector<Input> all = {
        pointer("handlePenDown", 240, 700),
        pointer("handlePenMove", 240, 500),
        pointer("handlePenMove", 200, 350),
        pointer("handlePenUp", 200, 300),
        key('s'),
        key('d'),
        key('w'),
        gesture(7, 1.0),
        gesture(8, 1.4),
        gesture(9, 1.4),
        pointer("handleDoubleClick", 200, 300),
        pointer("handleDoubleClick", 240, 200),
        pointer("handlePenDown", 240, 300),
        pointer("handlePenUp", 240, 550),
        pointer("handleClick", 120, 260),
        call("/common", "Search", R"(, "search": "b")"),
        call("/common", "nextResult"),
        call("/common", "nextResult"),
        call("/common", "previousResult"),
        call("/common", "closeSearch"),
        call("/common", "getDocProperties"),
    };
    std::vector<Input> own;
    if (kind == "xlsx") {
        own = {call("/excel", "getSheetList"), call("/excel", "jumpToSheet", R"(, "sheet": 1)"),
               pointer("handleClick", 200, 10), call("/excel", "sortDescending")};
    } else if (kind == "pptx") {
        own = {call("/ppt", "getSlideList"), call("/ppt", "jumpToSlide", R"(, "slide": 2)"),
               call("/ppt", "fitWideMode", R"(, "orientation": "left")"), call("/ppt", "getSlideNote")};
    } else {
        own = {call("/word", "wideMode", R"(, "mode": "on")"), pointer("handlePenDown", 300, 300),
               pointer("handlePenUp", 100, 300)};
    }
    all.insert(all.end(), own.begin(), own.end());
    // A glide that ends before a paint has moved it, because its way depends on the time.
    all.push_back([](BusConnection& bus, Queue& queue, int docid) {
        pointer("handleFlick", 0, -900)(bus, queue, docid);
        return pointer("handlePenDown", 240, 400)(bus, queue, docid);
    });
    all.push_back(pointer("handlePenUp", 240, 300));
    return all;
}

// All that a client can see of its document.
struct Seen {
    std::vector<std::vector<unsigned char>> frames;
    std::vector<std::array<int32_t, 3>> records;
    std::vector<std::array<int32_t, STATE_SIZE / 4>> states;
    std::vector<std::string> replies;
};

class Onlooker {
public:
    // touchKind: of a document with touch manners; empty without.
    Onlooker(BusConnection& bus, Queue& queue, const std::string& file, const std::string& touchKind = "")
        : mBus(bus), mQueue(queue), mDocument(bus, queue, file, WIDTH, HEIGHT, options(touchKind)) {
        look();
    }

    void give(const Input& input) {
        mSeen.replies.push_back(input(mBus, mQueue, mDocument.docid()));
        look();
    }
    const Seen& seen() const { return mSeen; }

private:
    static TestDocument::Options options(const std::string& touchKind) {
        TestDocument::Options options;
        options.touchKind = touchKind;
        return options;
    }
    void look() {
        EXPECT_EQ(mDocument.paint(), 0);
        mBus.call("/common", "getMimeInfo", mDocument.docidPayload()); // after all that the paint does
        const unsigned char* bytes = mDocument.frameBytes();
        mSeen.frames.emplace_back(bytes, bytes + static_cast<size_t>(WIDTH) * HEIGHT * 4);
        for (Answer answer = mQueue.poll(mDocument.store()); answer.id >= 0;
             answer = mQueue.poll(mDocument.store())) {
            mSeen.records.push_back({answer.id, answer.value, answer.extra});
        }
        std::array<int32_t, STATE_SIZE / 4> state{};
        std::memcpy(state.data(), mDocument.state(), STATE_SIZE);
        mSeen.states.push_back(state);
    }

    BusConnection& mBus;
    Queue& mQueue;
    TestDocument mDocument;
    Seen mSeen;
};

class TouchNeighbourTest : public ServiceTest, public testing::WithParamInterface<const char*> {
protected:
    Seen alone(const std::string& file, const std::vector<Input>& all) {
        Onlooker onlooker(*client, *queue, file);
        for (const Input& input : all) {
            onlooker.give(input);
        }
        return onlooker.seen();
    }
};

void expectSame(const Seen& seen, const Seen& alone) {
    ASSERT_EQ(seen.frames.size(), alone.frames.size());
    for (size_t i = 0; i < alone.frames.size(); ++i) {
        EXPECT_TRUE(seen.frames[i] == alone.frames[i]) << "the frame after input " << i;
    }
    EXPECT_EQ(seen.records, alone.records);
    EXPECT_EQ(seen.states, alone.states);
    EXPECT_EQ(seen.replies, alone.replies);
}

TEST_P(TouchNeighbourTest, AClassicViewIsByteForByteAsWithoutTouchViews) {
    const std::string kind = GetParam();
    const std::string file = sample("tour." + kind);
    const std::vector<Input> all = inputs(kind);
    const Seen expected = alone(file, all);
    EXPECT_GT(expected.records.size(), 5U) << "the inputs reach the view";
    stopService();
    startService();

    Onlooker before(*client, *queue, file);
    Onlooker touch(*client, *queue, file, kind == "docx" ? "word" : kind == "xlsx" ? "excel" : "ppt");
    Onlooker after(*client, *queue, file);
    for (const Input& input : all) {
        for (Onlooker* each : {&before, &touch, &after}) {
            each->give(input);
        }
        touch.give(touchRecord(11, 200, 300, 1.0F, 0));
        touch.give(touchRecord(11, 220, 310, 1.3F, 1));
        touch.give(touchRecord(11, 220, 310, 1.3F, 2));
        touch.give(touchRecord(12, 0, 60));
    }
    expectSame(before.seen(), expected);
    expectSame(after.seen(), expected);
}

INSTANTIATE_TEST_SUITE_P(EachKind, TouchNeighbourTest, testing::Values("docx", "xlsx", "pptx"),
                         [](const auto& kind) { return std::string(kind.param); });

} // namespace
