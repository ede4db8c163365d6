// SPDX-License-Identifier: Apache-2.0
// Clients that send anything in any order: records, payloads, segments, and creates
// without end.
#include "base/SharedSegment.h"
#include "tests/torture/TortureFixture.h"

#include <sys/msg.h>
#include <sys/shm.h>

#include <algorithm>

namespace {

const std::vector<std::pair<std::string, std::string>>& methods() {
    static const std::vector<std::pair<std::string, std::string>> all = {
        {"/common", "Search"},           {"/common", "closeSearch"}, {"/common", "nextSearchResult"},
        {"/common", "getDocProperties"}, {"/events", "handleClick"}, {"/events", "handleDoubleClick"},
        {"/events", "handleFlick"},      {"/events", "keyDown"},     {"/events", "penDown"},
        {"/events", "penMove"},          {"/events", "penUp"},       {"/events", "create"},
        {"/events", "destroy"},          {"/events", "ping"},        {"/word", "wideMode"},
        {"/excel", "getSheetList"},      {"/excel", "jumpToSheet"},  {"/excel", "hideSelection"},
        {"/excel", "sortAscending"},     {"/ppt", "getSlideList"},   {"/ppt", "jumpToSlide"},
        {"/ppt", "setFitWideMode"},
    };
    return all;
}

class ClientTorture : public TortureTest {
protected:
    std::string anyNumber() {
        static const std::vector<std::string> EDGES = {"0",     "-1",         "1",           "99",
                                                       "480",   "2147483647", "-2147483648", "1e300",
                                                       "\"7\"", "null",       "[]",          "4294967296"};
        return below(2) == 0 ? EDGES[below(static_cast<unsigned>(EDGES.size()))]
                             : std::to_string(static_cast<int32_t>(random()));
    }
    std::string anyPayload() {
        std::string text = R"({"docid":)" + std::to_string(below(4));
        for (const char* key : {"xCoord", "yCoord", "sheet", "slide", "chr", "modifiers", "width", "height",
                                "shmid", "size", "datastoreshmid"}) {
            text += std::string(",\"") + key + "\":" + anyNumber();
        }
        text += R"(,"search":"e","mode":"on","column":"/dev/null","filename":")" +
                (below(2) == 0 ? sample("tour.docx") : std::string("nowhere.xlsx")) + R"("})";
        return below(8) == 0 ? text.substr(0, below(static_cast<unsigned>(text.size()))) : text;
    }
    // Drops what the service has answered; a client that reads nothing fills the queue.
    void readAll() const {
        unsigned char scrap[64];
        while (msgrcv(queue->id(), scrap, 40, 0, IPC_NOWAIT | MSG_NOERROR) >= 0) {
        }
    }
    void floodRecords(int count) {
        for (int i = 0; i < count; ++i) {
            std::vector<unsigned char> text(below(4) == 0 ? below(200) : 20);
            for (unsigned char& byte : text) {
                byte = static_cast<unsigned char>(random());
            }
            if (text.size() >= 4 && below(4) != 0) {
                text[0] = static_cast<unsigned char>(below(4));
                text[1] = text[2] = text[3] = 0;
            }
            if (!queue->postRaw(1 + below(below(8) == 0 ? 5000 : 12), text)) {
                readAll();
            }
        }
    }
};

TEST_F(ClientTorture, RecordsAndPayloadsInAnyOrderAreSurvived) {
    std::vector<std::unique_ptr<TestDocument>> open;
    for (const std::string& path : tours()) {
        open.push_back(std::make_unique<TestDocument>(*client, *queue, path, 480, 800));
    }
    const int rounds = amount(40, 4000);
    constexpr int RECORDS = 100;
    for (int round = 0; round < rounds; ++round) {
        floodRecords(RECORDS);
        for (int i = 0; i < 3; ++i) {
            const auto& [category, method] = methods()[below(static_cast<unsigned>(methods().size()))];
            client->call(category, method, anyPayload());
        }
        readAll();
        expectAlive();
    }
    addRow("clients",
           std::to_string(rounds * RECORDS) + " records and " + std::to_string(3 * rounds) +
               " calls of any contents",
           "service alive");
    for (const auto& document : open) {
        client->call("/events", "destroy", document->docidPayload());
    }
    for (int docid = 0; docid < 2 * rounds; ++docid) { // those that "create" has opened
        client->call("/events", "destroy", "{\"docid\":" + std::to_string(docid) + "}");
    }
    readAll();
    expectServing();
}

TEST_F(ClientTorture, CreatesWithoutEndAreRefusedAtALimit) {
    stopService();
    service.reset();
    const int most = amount(6, 60);
    startService({{"LECTERN_MAX_CLIENT_DOCUMENTS", std::to_string(most)}});
    std::vector<std::unique_ptr<TestDocument>> open;
    int refused = 0;
    for (int i = 0; i < 2 * most; ++i) {
        open.push_back(std::make_unique<TestDocument>(*client, *queue, sample("tour.txt"), 480, 800));
        refused += open.back()->docid() < 0 ? 1 : 0;
    }
    EXPECT_EQ(refused, most);
    open.clear();
    addRow("clients",
           std::to_string(2 * most) + " creates of one client, with a limit of " + std::to_string(most),
           std::to_string(refused) + " refused; service alive");
    expectServing();
}

TEST_F(ClientTorture, OtherSegmentsThanStateRecordsStayAsTheyAre) {
    const int count = amount(10, 200);
    int touched = 0;
    for (int i = 0; i < count; ++i) {
        const size_t size = below(2) == 0 ? 29 + below(10000) : 1 + below(27);
        const int id = lectern::makeSegment(4096, IPC_PRIVATE, size, 0600);
        auto* const bytes = static_cast<unsigned char*>(shmat(id, nullptr, 0));
        std::fill_n(bytes, size, 0x5A);
        {
            TestDocument document(*client, *queue, sample("tour.txt"), 480, 800,
                                  {.password = "", .dataStore = static_cast<unsigned int>(id)});
            document.drag(100);
            EXPECT_NE(document.store(), id);
        }
        shmid_ds status{};
        shmctl(id, IPC_STAT, &status);
        touched += std::all_of(bytes, bytes + size, [](unsigned char byte) { return byte == 0x5A; }) &&
                           (status.shm_perm.mode & SHM_DEST) == 0
                       ? 0
                       : 1;
        shmdt(bytes);
        shmctl(id, IPC_RMID, nullptr);
    }
    EXPECT_EQ(touched, 0);
    addRow("clients", std::to_string(count) + " segments of other sizes as state record",
           std::to_string(touched) + " written to or marked for removal");
}

} // namespace
