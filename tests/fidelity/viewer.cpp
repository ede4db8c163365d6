// SPDX-License-Identifier: Apache-2.0
// fidelity_viewer: opens documents in a service of its own, one after the other, as
// a program on its standard input and output asks. A request is a line with a JSON
// object whose "do" names the work; viewer.py lists them. The reply is a line with a
// JSON object. A reply with "bytes" is followed by that many bytes: the frame, rows
// of pixels in the order blue, green, red, unused. A reply with "error" and "kind"
// tells a failure.
#include "client/lib/Json.h"
#include <lectern/CommonCalls.h>
#include <lectern/Document.h>
#include <lectern/ExcelCalls.h>
#include <lectern/Navigation.h>
#include <lectern/PptCalls.h>
#include <lectern/Service.h>

#include <cstdio>
#include <iostream>
#include <map>
#include <string>

namespace {

using namespace lectern; // NOLINT(google-build-using-namespace)

constexpr int DEFAULT_LIMIT_MS = 60'000;

const char* nameOf(Error::Kind kind) {
    switch (kind) {
    case Error::Kind::Document:
        return "document";
    case Error::Kind::Gone:
        return "gone";
    case Error::Kind::TimedOut:
        return "timeout";
    case Error::Kind::Refused:
        return "refused";
    default:
        return "other";
    }
}

JsonMembers failed(const Error& error) {
    JsonMembers reply;
    reply.add("error", error.text).add("kind", std::string(nameOf(error.kind))).add("code", error.code);
    return reply;
}

JsonMembers outcome(const Failure& failure) {
    return failure ? failed(*failure) : JsonMembers();
}

class Viewer {
public:
    explicit Viewer(const Bus& bus) : mBus(bus) {}

    JsonMembers answer(const JsonMembers& request) {
        const std::string work = request.string("do").value_or("");
        mLimits.timeout = std::chrono::milliseconds(request.integer("limit").value_or(DEFAULT_LIMIT_MS));
        if (work == "open") {
            return open(request);
        }
        if (work == "close") {
            mDocument.reset();
            return {};
        }
        const auto found = WORKS.find(work);
        if (found == WORKS.end() || !mDocument) {
            return failed({Error::Kind::Argument, "no such work, or no document: " + work, 0, {}});
        }
        return (this->*found->second)(request);
    }

    // The frame that the last reply announced with "bytes".
    const FrameBuffer& frame() const { return mDocument->frame(); }

private:
    using Work = JsonMembers (Viewer::*)(const JsonMembers&);
    static const std::map<std::string, Work> WORKS;

    JsonMembers open(const JsonMembers& request) {
        mDocument.reset();
        OpenOptions options;
        options.width = request.integer("width").value_or(options.width);
        options.height = request.integer("height").value_or(options.height);
        options.timeout = mLimits.timeout;
        options.manners = Manners::Classic; // its pictures are compared
        Result<std::unique_ptr<Document>> opened =
            Document::open(mBus, request.string("file").value_or(""), options);
        if (!opened) {
            return failed(opened.error());
        }
        mDocument = std::move(*opened);
        return {};
    }

    JsonMembers paint(const JsonMembers& /*request*/) {
        mDocument->settle();
        if (const Failure failure = mDocument->paint(mLimits)) {
            return failed(*failure);
        }
        const ViewState state = mDocument->state();
        JsonMembers reply;
        reply.add("bytes", frame().width() * frame().height() * 4)
            .add("x", state.scrollX)
            .add("y", state.scrollY);
        return reply;
    }

    JsonMembers search(const JsonMembers& request) {
        const Result<int> hits = mDocument->ask(common::search(request.string("text").value_or("")), mLimits);
        if (!hits) {
            return failed(hits.error());
        }
        JsonMembers reply;
        reply.add("hits", *hits);
        return reply;
    }

    JsonMembers closeSearch(const JsonMembers& /*request*/) {
        return outcome(mDocument->ask(common::closeSearch(), mLimits));
    }

    JsonMembers scroll(const JsonMembers& request) {
        const Point target{request.integer("x").value_or(0), request.integer("y").value_or(0)};
        const Result<bool> moved = scrollTo(*mDocument, target, mLimits);
        return moved ? JsonMembers() : failed(moved.error());
    }

    JsonMembers slide(const JsonMembers& request) {
        return outcome(showSlide(*mDocument, request.integer("number").value_or(0), mLimits));
    }

    JsonMembers slides(const JsonMembers& /*request*/) {
        const Result<int> count = mDocument->ask(ppt::getSlideCount(), mLimits);
        if (!count) {
            return failed(count.error());
        }
        JsonMembers reply;
        reply.add("slides", *count);
        return reply;
    }

    // Selects the columns between two points of the column headers and writes
    // their text to a file.
    JsonMembers copyColumns(const JsonMembers& request) {
        const int y = request.integer("y").value_or(0);
        Failure failure = mDocument->penDown(request.integer("from").value_or(0), y);
        if (!failure) {
            failure = mDocument->penUp(request.integer("to").value_or(0), y);
        }
        if (failure) {
            return failed(*failure);
        }
        // The glide that ends a drag ends with a paint, and would undo later moves.
        mDocument->settle();
        if (failure = mDocument->paint(mLimits); failure) {
            return failed(*failure);
        }
        return outcome(mDocument->ask(excel::copySelection(request.string("file").value_or("")), mLimits));
    }

    const Bus& mBus;
    CallLimits mLimits;
    std::unique_ptr<Document> mDocument;
};

const std::map<std::string, Viewer::Work> Viewer::WORKS{
    {"paint", &Viewer::paint},
    {"search", &Viewer::search},
    {"endSearch", &Viewer::closeSearch},
    {"scroll", &Viewer::scroll},
    {"slide", &Viewer::slide},
    {"slides", &Viewer::slides},
    {"copyColumns", &Viewer::copyColumns},
};

void serve(Viewer& viewer) {
    for (std::string line; std::getline(std::cin, line);) {
        const std::optional<JsonMembers> request = JsonMembers::parse(line);
        const JsonMembers reply =
            request ? viewer.answer(*request) : failed({Error::Kind::Argument, "not a JSON object", 0, {}});
        std::printf("%s\n", reply.text().c_str());
        if (const std::optional<int> bytes = reply.integer("bytes")) {
            std::fwrite(viewer.frame().pixels(), 1, static_cast<size_t>(*bytes), stdout);
        }
        std::fflush(stdout);
    }
}

} // namespace

int main() {
    const Result<Service> service = Service::open({.isolate = true});
    if (!service) {
        std::fprintf(stderr, "fidelity_viewer: %s\n", service.error().text.c_str());
        return 1;
    }
    Viewer viewer(service->bus());
    serve(viewer);
    return 0;
}
