// SPDX-License-Identifier: Apache-2.0
// Bridge until the C++ library has calls that do not block.
#pragma once

#include "base/GLibHolder.h"
#include <lectern/CommonCalls.h>
#include <lectern/Document.h>
#include <lectern/ExcelCalls.h>
#include <lectern/PptCalls.h>
#include <lectern/TouchCalls.h>
#include <lectern/WordCalls.h>

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace lectern {

template<typename Value>
struct Call {
    std::function<Result<Value>(const Bus&, int, const CallLimits&)> run;
};
template<>
struct Call<void> {
    std::function<Failure(const Bus&, int, const CallLimits&)> run;
};

namespace bridge {
inline Call<void> command(std::function<Failure(const Bus&, int, const CallLimits&)> run) {
    return {std::move(run)};
}
template<typename Value>
Call<Value> query(std::function<Result<Value>(const Bus&, int, const CallLimits&)> run) {
    return {std::move(run)};
}
} // namespace bridge

namespace touch {
inline Call<ViewPlace> getView() {
    return {[](const Bus& b, int d, const CallLimits& l) { return getView(b, d, l); }};
}
inline Call<void> scrollTo(Point at) {
    return {[=](const Bus& b, int d, const CallLimits& l) { return scrollTo(b, d, at, l); }};
}
inline Call<void> zoomTo(double zoom, std::optional<Point> about = {}) {
    return {[=](const Bus& b, int d, const CallLimits& l) { return zoomTo(b, d, zoom, about, l); }};
}
inline Call<std::string> getLink() {
    return {[](const Bus& b, int d, const CallLimits& l) { return getLink(b, d, l); }};
}
inline Call<Hit> search(const std::string& text, const SearchOptions& options = {}) {
    return {[=](const Bus& b, int d, const CallLimits& l) { return search(b, d, text, options, l); }};
}
inline Call<Hit> nextResult() {
    return {[](const Bus& b, int d, const CallLimits& l) { return nextResult(b, d, l); }};
}
inline Call<Hit> previousResult() {
    return {[](const Bus& b, int d, const CallLimits& l) { return previousResult(b, d, l); }};
}
inline Call<void> select(SelectUnit unit, Point at = {}) {
    return {[=](const Bus& b, int d, const CallLimits& l) { return select(b, d, unit, at, l); }};
}
inline Call<void> moveSelectionEnd(SelectEnd end, Point to) {
    return {[=](const Bus& b, int d, const CallLimits& l) { return moveSelectionEnd(b, d, end, to, l); }};
}
inline Call<Selection> getSelection() {
    return {[](const Bus& b, int d, const CallLimits& l) { return getSelection(b, d, l); }};
}
inline Call<std::vector<TextLine>> getText() {
    return {[](const Bus& b, int d, const CallLimits& l) { return getText(b, d, l); }};
}
inline Call<std::vector<OutlineEntry>> getOutline() {
    return {[](const Bus& b, int d, const CallLimits& l) { return getOutline(b, d, l); }};
}
inline Call<void> goTo(int entry) {
    return {[=](const Bus& b, int d, const CallLimits& l) { return goTo(b, d, entry, l); }};
}
inline Call<Cell> getCell(std::optional<CellAddress> at = {}) {
    return {[=](const Bus& b, int d, const CallLimits& l) { return getCell(b, d, at, l); }};
}
inline Call<void> getThumbnail(int part, const FrameBuffer& picture) {
    return {[=, &picture](const Bus& b, int d, const CallLimits& l) {
        return getThumbnail(b, d, part, picture, l);
    }};
}
inline Call<void> exportTo(ExportFormat format, const std::string& path) {
    return {[=](const Bus& b, int d, const CallLimits& l) { return exportTo(b, d, format, path, l); }};
}
} // namespace touch

namespace common {
struct DocumentProperties {
    std::string name, author, description, created, saved;
    int words = -1;
};
inline Call<DocumentProperties> getProperties() {
    return {[](const Bus&, int, const CallLimits&) -> Result<DocumentProperties> {
        return Error{Error::Kind::Refused, "not yet", 0, "errNotSupported"};
    }};
}
inline Call<void> closeSearch() {
    return {[](const Bus& b, int d, const CallLimits& l) { return closeSearch(b, d, l); }};
}
} // namespace common

namespace excel {
inline Call<int> jumpToSheet(int sheet) {
    return {[=](const Bus& b, int d, const CallLimits& l) { return jumpToSheet(b, d, sheet, l); }};
}
inline Call<int> sortAscending() {
    return {[](const Bus& b, int d, const CallLimits& l) { return sortAscending(b, d, l); }};
}
inline Call<int> sortDescending() {
    return {[](const Bus& b, int d, const CallLimits& l) { return sortDescending(b, d, l); }};
}
inline Call<void> resizeMode(bool on) {
    return {[=](const Bus& b, int d, const CallLimits& l) { return resizeMode(b, d, on, l); }};
}
inline Call<void> hideSelection() {
    return {[](const Bus& b, int d, const CallLimits& l) { return hideSelection(b, d, l); }};
}
inline Call<void> unhideSelection() {
    return {[](const Bus& b, int d, const CallLimits& l) { return unhideSelection(b, d, l); }};
}
inline Call<void> unhideAll() {
    return {[](const Bus& b, int d, const CallLimits& l) { return unhideAll(b, d, l); }};
}
} // namespace excel

namespace ppt {
inline Call<std::string> getNote() {
    return {[](const Bus&, int, const CallLimits&) -> Result<std::string> {
        return Error{Error::Kind::Refused, "not yet", 0, "errNotSupported"};
    }};
}
inline Call<int> jumpToSlide(int slide) {
    return {[=](const Bus& b, int d, const CallLimits& l) { return jumpToSlide(b, d, slide, l); }};
}
inline Call<void> fitWideMode(const std::optional<std::string>& orientation) {
    return {[=](const Bus& b, int d, const CallLimits& l) { return fitWideMode(b, d, orientation, l); }};
}
} // namespace ppt

namespace word {
inline Call<void> wideMode(bool on) {
    return {[=](const Bus& b, int d, const CallLimits& l) { return wideMode(b, d, on, l); }};
}
} // namespace word

enum class Lane { Input, Paint, Call };

class LaneDocument {
public:
    using Work = std::function<Failure(Document&, const std::stop_token&)>;
    LaneDocument(std::unique_ptr<Document> document, GMainContext* context)
        : mDocument(std::move(document)), mContext(g_main_context_ref(context)) {}
    ~LaneDocument() {
        mSource.request_stop();
        for (Thread& lane : mLanes) {
            lane.thread = {};
        }
    }
    DocumentKind kind() const { return mDocument->kind(); }
    ViewState state() const { return mDocument->state(); }
    void later(Lane lane, Work work, std::function<void(Failure)> onDone = {}, std::stop_token stop = {}) {
        Thread& thread = mLanes[static_cast<size_t>(lane)];
        const std::lock_guard lock(thread.mutex);
        thread.jobs.push_back({std::move(work), std::move(onDone), std::move(stop)});
        if (!thread.thread.joinable()) {
            thread.thread = std::jthread([this, &thread](const std::stop_token& end) { run(thread, end); });
        }
        thread.changed.notify_one();
    }
    template<typename Value>
    void ask(Call<Value> call, std::function<void(Result<Value>)> onDone, const CallLimits& limits = {}) {
        auto reply = std::make_shared<std::optional<Result<Value>>>();
        later(
            Lane::Call,
            [call, reply, limits](Document& document, const std::stop_token& stop) {
                CallLimits own = limits;
                own.stop = stop;
                *reply = call.run(document.bus(), document.docid(), own);
                return Failure();
            },
            [reply, onDone](Failure failure) {
                onDone(failure ? Result<Value>(*failure) : std::move(**reply));
            },
            limits.stop);
    }
    void ask(Call<void> call, std::function<void(Failure)> onDone, const CallLimits& limits = {}) {
        later(
            Lane::Call,
            [call, limits](Document& document, const std::stop_token& stop) {
                CallLimits own = limits;
                own.stop = stop;
                return call.run(document.bus(), document.docid(), own);
            },
            std::move(onDone), limits.stop);
    }

private:
    struct Job {
        Work work;
        std::function<void(Failure)> onDone;
        std::stop_token stop;
    };
    struct Thread {
        std::mutex mutex;
        std::condition_variable_any changed;
        std::deque<Job> jobs;
        std::jthread thread;
    };
    void run(Thread& thread, const std::stop_token& end) {
        while (!end.stop_requested()) {
            Job job;
            {
                std::unique_lock lock(thread.mutex);
                if (!thread.changed.wait(lock, end, [&] { return !thread.jobs.empty(); })) {
                    return;
                }
                job = std::move(thread.jobs.front());
                thread.jobs.pop_front();
            }
            std::stop_source either;
            const auto ask = [&] { either.request_stop(); };
            const std::stop_callback own(mSource.get_token(), ask);
            const std::stop_callback given(job.stop, ask);
            Failure failure = job.stop.stop_requested()
                                  ? Failure(Error{Error::Kind::Cancelled, "interrupted", 0, {}})
                                  : job.work(*mDocument, either.get_token());
            job.work = {};
            if (job.onDone) {
                auto* done = new std::function<void()>(
                    [onDone = std::move(job.onDone), failure = std::move(failure)] { onDone(failure); });
                g_main_context_invoke_full(
                    mContext.get(), G_PRIORITY_DEFAULT,
                    [](gpointer d) {
                        (*static_cast<std::function<void()>*>(d))();
                        return G_SOURCE_REMOVE;
                    },
                    done, [](gpointer d) { delete static_cast<std::function<void()>*>(d); });
            }
        }
    }

    std::unique_ptr<Document> mDocument;
    GLibHolder<GMainContext> mContext;
    std::stop_source mSource;
    Thread mLanes[3];
};

} // namespace lectern
