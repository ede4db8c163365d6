// SPDX-License-Identifier: Apache-2.0
// The times of frames while fingers move over a document. A frame lasts from the paint
// request to its answer; the frame that ends a pinch from the record that ends it, and
// the frame of a step to a hit from the call.
#include "bench/service/Figures.h"
#include "bench/service/RunningService.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::microseconds PERIOD{8'333}; // of a screen with 120 frames per second
constexpr int DRAG_FRAMES = 24;
constexpr int PINCH_FRAMES = 16;
constexpr double PINCH_FACTOR = 1.5;
constexpr std::chrono::milliseconds LONGEST_GLIDE{2'000};
// A glide that has not asked for a paint for so long has ended.
constexpr std::chrono::milliseconds GLIDE_PAUSE{60};

constexpr double AT_120_HZ = 8.3; // milliseconds
constexpr double AT_60_HZ = 16;

struct Frame {
    const char* input;
    double time;
};
constexpr char DRAG[] = "drag";
constexpr char FLING[] = "fling";
constexpr char PINCH[] = "pinch";
constexpr char PINCH_END[] = "pinch-end";
constexpr char STEP[] = "step";

class Fingers {
public:
    // searches: the category whose search the view uses.
    Fingers(OpenedDocument& opened, int width, int height, double seconds, const char* searches)
        : mOpened(opened), mDocument(opened.document()), mQueue(opened.service().queue()), mWidth(width),
          mHeight(height), mSearches(searches),
          mEnd(Clock::now() + std::chrono::milliseconds(static_cast<int>(seconds * 1000))) {}

    bool timeIsLeft() const { return Clock::now() < mEnd; }

    // Moves the document up by `rows`, or down if negative.
    void drag(int rows) {
        const int from = rows > 0 ? mHeight - 1 : 0;
        mDocument.penDown(mWidth / 2, from);
        for (int i = 1; i <= DRAG_FRAMES && timeIsLeft(); ++i) {
            awaitFrame();
            mDocument.penMove(mWidth / 2, from - rows * i / DRAG_FRAMES);
            frame(DRAG);
        }
        mDocument.penUp(mWidth / 2, from - rows);
    }
    void fling(int velocity) {
        call("/events", "handleFlick", ",\"xCoord\":0,\"yCoord\":" + std::to_string(velocity));
        const auto longest = Clock::now() + LONGEST_GLIDE;
        auto asked = Clock::now();
        while (timeIsLeft() && Clock::now() < longest && Clock::now() < asked + GLIDE_PAUSE) {
            awaitFrame();
            if (isInvalidated()) {
                asked = Clock::now();
                frame(FLING);
            }
        }
        call("/events", "handlePenDown", ",\"xCoord\":1,\"yCoord\":1");
        call("/events", "handlePenUp", ",\"xCoord\":1,\"yCoord\":1");
    }
    void pinch(double factor) {
        frame(PINCH);
        mQueue.postGesture(7, mDocument.docid(), 1.0);
        for (int i = 1; i <= PINCH_FRAMES; ++i) {
            awaitFrame();
            mQueue.postGesture(8, mDocument.docid(), 1.0 + (factor - 1.0) * i / PINCH_FRAMES);
            mQueue.settle(mDocument.store());
            frame(PINCH);
        }
        awaitFrame();
        const double start = now();
        mQueue.postGesture(9, mDocument.docid(), factor);
        mQueue.settle(mDocument.store());
        frame(PINCH_END, start);
    }
    void step() {
        awaitFrame();
        const double start = now();
        call(mSearches, "nextResult", "");
        frame(STEP, start);
    }
    void search(const char* method, const std::string& word) {
        call(mSearches, method, ",\"search\":\"" + word + "\"");
    }

    const std::vector<Frame>& frames() const { return mFrames; }

private:
    void awaitFrame() {
        mDue = std::max(mDue + PERIOD, Clock::now());
        std::this_thread::sleep_until(mDue);
    }
    void frame(const char* input) { frame(input, now()); }
    void frame(const char* input, double start) {
        mDocument.paint();
        mFrames.push_back({input, now() - start});
    }
    bool isInvalidated() {
        constexpr int INVALIDATED = 0;
        bool found = false;
        for (Answer answer = mQueue.poll(mDocument.store()); answer.id >= 0;
             answer = mQueue.poll(mDocument.store())) {
            found = found || answer.id == INVALIDATED;
        }
        return found;
    }
    void call(const char* category, const char* method, const std::string& more) {
        const std::string payload = mDocument.docidPayload();
        mOpened.service().bus().call(category, method, payload.substr(0, payload.size() - 1) + more + "}");
    }

    OpenedDocument& mOpened;
    TestDocument& mDocument;
    Queue& mQueue;
    int mWidth;
    int mHeight;
    const char* mSearches;
    Clock::time_point mEnd;
    Clock::time_point mDue = Clock::now();
    std::vector<Frame> mFrames;
};

// One minute of reading is many of these rounds: further down more than up, in and out,
// and to hits.
void moveOnce(Fingers& fingers, int height, int round) {
    const int direction = round % 4 == 3 ? -1 : 1;
    fingers.drag(direction * height / 2);
    fingers.drag(direction * height * 3 / 4);
    fingers.fling(-direction * height * 2);
    fingers.pinch(round % 2 == 0 ? PINCH_FACTOR : 1 / PINCH_FACTOR);
    fingers.drag(-height / 3);
    fingers.fling(-direction * height * 5);
    fingers.step();
    fingers.step();
}

std::vector<double> times(const std::vector<Frame>& frames, const char* input = nullptr) {
    std::vector<double> found;
    for (const Frame& frame : frames) {
        if (input == nullptr || frame.input == input) {
            found.push_back(frame.time);
        }
    }
    return found;
}

auto countAbove(const std::vector<double>& frames, double limit) {
    return std::count_if(frames.begin(), frames.end(), [=](double time) { return time > limit; });
}

double shareAbove(const std::vector<double>& frames, double limit) {
    return 100.0 * static_cast<double>(countAbove(frames, limit)) / static_cast<double>(frames.size());
}

// Which inputs the long frames belong to: of each, the number of its frames, of those over
// 8.3 ms, and its longest.
void printInputs(const std::vector<Frame>& frames) {
    for (const char* input : {DRAG, FLING, PINCH, PINCH_END, STEP}) {
        const std::vector<double> own = times(frames, input);
        if (own.empty()) {
            continue;
        }
        const std::string name = input;
        printFigure(name + ".frames", static_cast<double>(own.size()));
        printFigure(name + ".long", static_cast<double>(countAbove(own, AT_120_HZ)));
        printFigure(name + ".longest", quantile(own, 1));
    }
}

} // namespace

void frameFigures(const Arguments& arguments) {
    const int width = std::stoi(arguments[1]);
    const int height = std::stoi(arguments[2]);
    TestDocument::Options options;
    options.touchKind = arguments.size() > 5 ? arguments[5] : "";
    const bool touch = !options.touchKind.empty();
    RunningService service;
    OpenedDocument opened(service, arguments[0], width, height, options);
    service.waitUntilQuiet();
    Fingers fingers(opened, width, height, std::stod(arguments[3]), touch ? "/touch" : "/common");
    fingers.search(touch ? "search" : "Search", arguments[4]);
    for (int round = 0; round == 0 || fingers.timeIsLeft(); ++round) {
        moveOnce(fingers, height, round);
    }
    const std::vector<double> frames = times(fingers.frames());
    printFigure("frames", static_cast<double>(frames.size()));
    printFigure("median", median(frames));
    printFigure("over-8.3", shareAbove(frames, AT_120_HZ));
    printFigure("over-16", shareAbove(frames, AT_60_HZ));
    printFigure("longest", quantile(frames, 1));
    printInputs(fingers.frames());
}
