// SPDX-License-Identifier: Apache-2.0
// lectern-window FILE: shows a document in a window of SDL 2. Fingers and the mouse drag, fling, pinch and
// tap; wheel, arrows and page keys scroll; Ctrl with = and - zooms; letters search, Return way.
#include <lectern/Opening.h>
#include <lectern/Service.h>
#include <lectern/TouchCalls.h>

#include <SDL.h>

#include <cmath>
#include <cstdio>
#include <deque>
#include <map>

namespace {

using namespace lectern;
using Function = std::function<void()>;
Uint32 callEvent = 0; // the number of SDL events that carry a function

// The library calls back on threads of its own. These callbacks are made by SDL's loop, on the main thread.
template<typename Callback>
auto onMainThread(Callback callback) {
    return [callback](auto... values) {
        SDL_Event event{.type = callEvent};
        event.user.data1 = new Function([callback, values...] { callback(values...); });
        SDL_PushEvent(&event);
    };
}

// The picture on the screen. A paint is requested when something has changed, and the next
// one only after the display has taken the picture: never more than one a frame, none at rest.
class Picture {
public:
    Picture(SDL_Renderer* renderer, Document& document) : mRenderer(renderer), mDocument(document) {}

    // isGone: the service has stopped; the last picture stays until the document is back at its place.
    void invalidate(bool isGone = false) {
        mIsStale = true;
        mIsGone = mIsGone || isGone;
        paintNext();
    }
    // Gives the view another size; those that come during a change result in one more.
    void resize(Point size) {
        mNewSize = size;
        invalidate();
    }
    // Sends input, which may wait for the service, in the lane for input; then paints.
    template<typename Input>
    void send(Input input) {
        mDocument.later(
            Lane::Input, [input](Document& document, auto&) { return input(document); },
            onMainThread([this](auto&&) { invalidate(); }));
    }
    void present() {
        SDL_RenderClear(mRenderer);
        const SDL_Rect place{0, 0, mSize.x, mSize.y}; // not scaled while a new size is on its way
        SDL_RenderCopy(mRenderer, mTexture.get(), nullptr, &place);
        SDL_RenderPresent(mRenderer); // waits for the display
    }

private:
    void paintNext() {
        if (mIsPainting || !mIsStale) {
            return;
        }
        mIsPainting = true;
        mIsStale = false;
        const bool isGone = std::exchange(mIsGone, false);
        const auto paint = [isGone, size = std::exchange(mNewSize, {})](Document& document, auto& stop) {
            Failure failure = isGone ? document.reopen({.stop = stop}) : std::nullopt;
            failure = !failure && size ? document.resize(size->x, size->y, {.stop = stop}) : failure;
            document.settle(); // a paint is served before input that waits
            return failure ? failure : document.paint({.stop = stop});
        };
        const auto onPainted = onMainThread([this](const Failure& failure) {
            if (!failure) {
                show(mDocument.frame());
            }
            mIsPainting = false;
            paintNext();
        });
        mDocument.later(Lane::Paint, paint, onPainted);
    }
    void show(const FrameBuffer& frame) {
        if (mSize != Point{frame.width(), frame.height()}) {
            mSize = {frame.width(), frame.height()};
            mTexture.reset(SDL_CreateTexture(mRenderer, SDL_PIXELFORMAT_RGB888, SDL_TEXTUREACCESS_STREAMING,
                                             mSize.x, mSize.y));
        }
        SDL_UpdateTexture(mTexture.get(), nullptr, frame.pixels(), frame.width() * 4);
        present();
    }

    SDL_Renderer* mRenderer;
    Document& mDocument;
    std::unique_ptr<SDL_Texture, decltype(&SDL_DestroyTexture)> mTexture{nullptr, SDL_DestroyTexture};
    Point mSize;                   // of the texture
    std::optional<Point> mNewSize; // one that the view does not have yet
    bool mIsStale = false;
    bool mIsGone = false;
    bool mIsPainting = false;
};

// Makes drags, flings, taps and pinches out of touches.
class Fingers {
public:
    explicit Fingers(Picture& picture) : mPicture(picture) {}

    void down(SDL_FingerID finger, Point at, Uint32 time) {
        mFingers[finger] = at;
        if (mFingers.size() == 1) {
            mBegin = at;
            mTrack = {{time, at}};
            mPicture.send([at](Document& document) { return document.penDown(at.x, at.y); });
        } else if (mFingers.size() == 2) {
            if (!mTrack.empty()) {
                lift(mTrack.back().second); // the first finger does not drag any more
            }
            mSpan = span();
            pinch(PinchStep::Begins);
        }
    }
    void move(SDL_FingerID finger, Point at, Uint32 time) {
        mFingers[finger] = at;
        if (mSpan > 0) {
            pinch(PinchStep::Moves);
        } else if (!mTrack.empty()) {
            mTrack.push_back({time, at});
            while (time - mTrack.front().first > FLING_TIME) {
                mTrack.pop_front();
            }
            mPicture.send([at](Document& document) { return document.penMove(at.x, at.y); });
        }
    }
    void up(SDL_FingerID finger, Point at, Uint32 time) {
        if (mSpan > 0) {
            pinch(PinchStep::Ends);
            mSpan = 0; // the other finger does nothing until it leaves, too
        } else if (!mTrack.empty()) {
            letGo(at, time);
        }
        mFingers.erase(finger);
    }

private:
    static constexpr Uint32 FLING_TIME = 100, DOUBLE_TAP_TIME = 300; // in milliseconds
    static constexpr int TAP_WAY = 16;                               // pixels that a tapping finger may move
    static double distance(Point a, Point b) { return std::hypot(a.x - b.x, a.y - b.y); }

    void letGo(Point at, Uint32 time) {
        const bool isTap = distance(mBegin, at) < TAP_WAY;
        const auto [since, from] = mTrack.front();
        const double seconds = std::fmax(time - since, 1) / 1000;
        if (!isTap && time - mTrack.back().first < FLING_TIME) {
            const Point speed{int((at.x - from.x) / seconds), int((at.y - from.y) / seconds)};
            mPicture.send([speed](Document& document) { return document.flick(speed.x, speed.y); });
        }
        lift(at);
        if (isTap) {
            const bool isSecond =
                time - mTap.first < DOUBLE_TAP_TIME && distance(mTap.second, at) < 2 * TAP_WAY;
            mPicture.send([at, isSecond](Document& document) {
                return isSecond ? document.doubleClick(at.x, at.y) : document.click(at.x, at.y);
            });
            mTap = {isSecond ? time - DOUBLE_TAP_TIME : time, at};
        }
    }
    void lift(Point at) {
        mPicture.send([at](Document& document) { return document.penUp(at.x, at.y); });
        mTrack.clear();
    }
    Point first() const { return mFingers.begin()->second; }
    Point second() const { return std::next(mFingers.begin())->second; }
    double span() const { return std::fmax(1.0, distance(first(), second())); }
    void pinch(PinchStep step) {
        const int x = (first().x + second().x) / 2, y = (first().y + second().y) / 2;
        const double factor = span() / mSpan;
        mPicture.send([=](Document& document) { return document.pinchAt(x, y, factor, step); });
    }

    Picture& mPicture;
    std::map<SDL_FingerID, Point> mFingers;
    std::deque<std::pair<Uint32, Point>> mTrack; // of the finger that drags; empty when none does
    Point mBegin;                                // where it came down
    std::pair<Uint32, Point> mTap;               // the last one
    double mSpan = 0; // of two fingers when the second came down; 0 when nobody pinches
};

class Window {
public:
    // Opens the document without blocking. `renderer` must outlive this object.
    Window(SDL_Renderer* renderer, const Service& service, const std::string& path) : mRenderer(renderer) {
        OpenOptions options{.width = size().x, .height = size().y, .dpi = 96};
        options.events.onInvalidated = onMainThread([this] { mPicture ? mPicture->invalidate() : void(); });
        options.events.onOpenProgress = onMainThread([this](int part) { say(std::to_string(part) + " %"); });
        options.events.onServiceGone = onMainThread([this] { mPicture->invalidate(true); });
        options.events.onDocumentLost = onMainThread([this](auto&&) { mPicture->invalidate(true); });
        options.events.onLinkTapped = onMainThread([this] {
            mDocument->ask(touch::getLink(), onMainThread([this](auto link) { say(link ? *link : ""); }));
        });
        mOpening = Opening::start(service.bus(), path, options, [this](auto result) {
            const auto opened = std::make_shared<decltype(result)>(std::move(result));
            onMainThread([this, opened] { show(*opened); })();
        });
    }

    void handle(const SDL_Event& event) {
        if (!mDocument) {
            return;
        }
        const auto& touch = event.tfinger;
        const Point at{int(touch.x * float(size().x - 1)), int(touch.y * float(size().y - 1))};
        if (event.type == SDL_FINGERDOWN) {
            mFingers->down(touch.fingerId, at, touch.timestamp);
        } else if (event.type == SDL_FINGERMOTION) {
            mFingers->move(touch.fingerId, at, touch.timestamp);
        } else if (event.type == SDL_FINGERUP) {
            mFingers->up(touch.fingerId, at, touch.timestamp);
        } else if (event.type == SDL_MOUSEWHEEL) {
            const Point way{int(event.wheel.preciseX * 60), int(event.wheel.preciseY * -60)};
            mPicture->send([way](Document& document) { return document.scrollBy(way.x, way.y); });
        } else if (event.type == SDL_KEYDOWN) {
            pressKey(event.key.keysym);
        } else if (event.type == SDL_TEXTINPUT) {
            mQuery += event.text.text;
            find(touch::search(mQuery));
        } else if (event.type == SDL_WINDOWEVENT && event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED) {
            mPicture->resize(size());
        } else if (event.type == SDL_WINDOWEVENT) {
            mPicture->present();
        }
    }

private:
    Point size() const {
        Point size;
        SDL_GetRendererOutputSize(mRenderer, &size.x, &size.y);
        return size;
    }
    void say(const std::string& text) { SDL_SetWindowTitle(SDL_RenderGetWindow(mRenderer), text.c_str()); }
    void show(Result<std::unique_ptr<Document>>& opened) {
        if (!opened) {
            return say(opened.error().text);
        }
        mDocument = std::move(*opened);
        mPicture.emplace(mRenderer, *mDocument);
        mFingers.emplace(*mPicture);
        mPicture->resize(size());
    }
    void find(const Call<touch::Hit>& call) {
        const auto tell = [this](auto hit) { say(mQuery + ": " + (hit ? std::to_string(hit->hits) : "no")); };
        mDocument->ask(call, onMainThread(tell));
    }
    void pressKey(const SDL_Keysym& key) {
        const std::map<int, int> way{
            {SDLK_UP, -60}, {SDLK_DOWN, 60}, {SDLK_PAGEUP, -600}, {SDLK_PAGEDOWN, 600}};
        const std::map<int, double> zooms{{SDLK_EQUALS, 1.25}, {SDLK_MINUS, 0.8}};
        if (way.contains(key.sym)) {
            mPicture->send([y = way.at(key.sym)](Document& document) { return document.scrollBy(0, y); });
        } else if (zooms.contains(key.sym) && (key.mod & KMOD_CTRL) != 0) {
            mDocument->ask(touch::zoomTo(mDocument->state().scale * zooms.at(key.sym)), [](auto&&) {});
        } else if (key.sym == SDLK_RETURN && !mQuery.empty()) {
            find(touch::nextResult());
        }
    }

    SDL_Renderer* mRenderer;
    std::string mQuery;
    std::unique_ptr<Opening> mOpening;
    std::optional<Picture> mPicture;
    std::optional<Fingers> mFingers;
    std::unique_ptr<Document> mDocument; // ends first, because its lanes use the others
};

} // namespace

int main(int argc, char** argv) {
    const auto service = Service::open({.isolate = true}); // before SDL starts threads
    SDL_SetHint(SDL_HINT_MOUSE_TOUCH_EVENTS, "1");         // the mouse is one more finger
    SDL_SetHint(SDL_HINT_TOUCH_MOUSE_EVENTS, "0");
    if (argc != 2 || !service || SDL_Init(SDL_INIT_VIDEO) != 0) {
        std::fprintf(stderr, "lectern-window needs a file, the service and a display. %s\n", SDL_GetError());
        return 1;
    }
    callEvent = SDL_RegisterEvents(1);
    SDL_Window* window = SDL_CreateWindow(argv[1], 0, 0, 480, 800, SDL_WINDOW_RESIZABLE);
    SDL_Renderer* renderer = SDL_CreateRenderer(window, -1, SDL_RENDERER_PRESENTVSYNC);
    auto shown = std::make_unique<Window>(renderer, *service, argv[1]);
    for (SDL_Event event; SDL_WaitEvent(&event) != 0 && event.type != SDL_QUIT;) {
        if (event.type == callEvent) {
            const std::unique_ptr<Function> function(static_cast<Function*>(event.user.data1));
            (*function)();
        } else {
            shown->handle(event);
        }
    }
    shown.reset();
    SDL_Quit();
}
