// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "RecordingView.h"
#include "ServiceSystemCalls.h"
#include "channel/ServiceQueue.h"
#include "service/Registry.h"
#include "tests/fakes/hub/FakeHub.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

inline constexpr char DONE[] = R"({ "returnValue": true })";
inline constexpr char NO_DOCUMENT[] =
    R"({ "errorCode": "errDoesNotExist", "errorText": "Document does not exist" })";
inline constexpr char NO_DOCID_TEXT[] =
    R"({ "errorCode": "errParamFailed", "errorText": "failed to get docid" })";
inline constexpr char NO_PARAMETER_TEXT[] =
    R"({ "errorCode": "errParamFailed", "errorText": "failed to get required parameter" })";

// A service without its main loop: the categories are registered with the fake
// bus, the queue is open and empty, and there is no document. Everything,
// including all segments, is removed at the end.
class ServiceTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    std::optional<std::string> call(const std::string& category, const std::string& method,
                                    const std::string& payload) {
        return fakeHub.call(category, method, payload.c_str());
    }

    // Adds a recording view to the registry and returns its docid. Its frame is
    // frameOf(docid).
    int addView(doctype_t kind = _EXCEL);
    RecordingView& view(int docid) { return static_cast<RecordingView&>(*gDocuments.at(index(docid)).view); }
    // The address of a recording view's messages.
    static long addressOf(int docid) { return 5000 + docid; }
    std::vector<unsigned int>& frameOf(int docid) { return *frames.at(index(docid)); }

    // Takes the records that wait for an addressee.
    static std::vector<ServerClientMessage> takeMessages(long addressee);
    static unsigned long waiting();
    // Adds the records that wait for a recording view to the trace, as "message ID".
    void traceMessages();
    // Calls a method and returns the trace of it, with replies as "reply TEXT".
    std::vector<std::string> traceOf(const std::string& category, const std::string& method,
                                     const std::string& payload);

    static int segments();
    // Whether the registry's mutex is held; its holder may ask too.
    static bool registryIsHeld();
    // The same for a recording view's own mutex.
    bool viewIsHeld(int docid) { return isHeld(view(docid).mutex()); }

    std::vector<std::string> trace;
    int segmentsBefore = 0;

private:
    static bool isHeld(pthread_mutex_t* mutex);
    static size_t index(int docid) { return static_cast<size_t>(docid); }

    std::vector<std::unique_ptr<std::vector<unsigned int>>> frames;
};

// Makes locking the registry's mutex fail, as if its own thread held it.
class StuckRegistry {
public:
    StuckRegistry();
    ~StuckRegistry();
};
