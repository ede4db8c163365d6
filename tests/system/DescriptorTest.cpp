// SPDX-License-Identifier: Apache-2.0
// A service with no file descriptors left for a request.
#include "tests/system/support/ServiceFixture.h"

#include <sys/resource.h>

#include <array>
#include <memory>
#include <vector>

namespace {

using Documents = std::vector<std::unique_ptr<TestDocument>>;

class DescriptorTest : public ServiceTest {
protected:
    void limitDescriptors(rlim_t count) const {
        const rlimit limit{count, count};
        ASSERT_EQ(prlimit(service->pid(), RLIMIT_NOFILE, &limit, nullptr), 0);
    }
    Documents openTen() {
        constexpr std::array<const char*, 3> NAMES = {"tour.docx", "tour.xlsx", "tour.pptx"};
        Documents documents;
        for (size_t i = 0; i < 10; ++i) {
            documents.push_back(
                std::make_unique<TestDocument>(*client, *queue, sample(NAMES[i % NAMES.size()]), 480, 800));
        }
        return documents;
    }
    // Keeps those that were opened and returns their number. The others were refused.
    size_t keepOpened(Documents& documents) const {
        std::erase_if(documents, [](const auto& document) { return document->docid() < 0; });
        return documents.size();
    }
    // Needs surfaces of other sizes: zooms in and out, and switches to the wide layout.
    static void resize(TestDocument& document) {
        for (int i = 0; i < 3; ++i) {
            document.doubleTap(100, 100);
            document.paint();
        }
        document.call("/word", "wideMode", R"(, "wideMode": true)");
        document.doubleTap(100, 100);
        document.paint();
    }
};

TEST_F(DescriptorTest, TenDocumentsWithSixtyFourDescriptorsDoNotEndTheService) {
    limitDescriptors(64);
    Documents documents = openTen();
    EXPECT_LT(keepOpened(documents), 10U) << "or the limit is none";
    EXPECT_FALSE(documents.empty());
    for (const auto& document : documents) {
        resize(*document);
    }
    EXPECT_NE(service->errors().find("Document refused: too few file descriptors are left."),
              std::string::npos);
    EXPECT_FALSE(service->wait(std::chrono::milliseconds(0)).has_value()) << service->errors();
    documents.clear();
    TestDocument next(*client, *queue, sample("tour.docx"), 480, 800);
    EXPECT_EQ(next.openResult(), 0) << "there is room again";
    EXPECT_EQ(next.paint(), 0);
}

} // namespace
