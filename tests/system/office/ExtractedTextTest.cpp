// SPDX-License-Identifier: Apache-2.0
// Searches compared with the suite's own text export of a document.
#include "engine/office/FileUrl.h"
#include "engine/office/OfficePrivate.h"
#include "modules/ModuleResults.h"
#include "tests/system/office/Documents.h"
#include "tests/system/office/OfficeFixture.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <map>
#include <sstream>

namespace lectern::engine::test {

namespace {

class ExtractedText : public OfficeTest {
public:
    // The suite's plain-text export in lower case; empty when the document
    // cannot be loaded.
    static std::string extract(const std::filesystem::path& path) {
        const std::unique_ptr<lok::Document> document(
            office().d().suite->documentLoad(fileUrl(path).c_str(), "Batch=true"));
        const std::filesystem::path target = testFolder() / "extracted.txt";
        if (!document || !document->saveAs(fileUrl(target).c_str(), "txt", "UTF8")) {
            return {};
        }
        std::ostringstream text;
        text << std::ifstream(target, std::ios::binary).rdbuf();
        std::string letters = text.str();
        std::transform(letters.begin(), letters.end(), letters.begin(), [](unsigned char byte) {
            return static_cast<char>(byte < 0x80 ? std::tolower(byte) : byte);
        });
        return letters;
    }

    static size_t occurrences(const std::string& text, const std::string& word) {
        size_t count = 0;
        for (size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + word.size())) {
            ++count;
        }
        return count;
    }

    // The most frequent words with at least three letters.
    static std::vector<std::string> frequentWords(const std::string& text) {
        std::map<std::string, int> counts;
        std::string word;
        for (const char byte : text + " ") {
            if (byte >= 'a' && byte <= 'z') {
                word += byte;
                continue;
            }
            if (word.size() >= 3) {
                ++counts[word];
            }
            word.clear();
        }
        std::vector<std::string> words;
        for (const auto& [each, count] : counts) {
            words.push_back(each);
        }
        std::stable_sort(words.begin(), words.end(),
                         [&](const std::string& a, const std::string& b) { return counts[a] > counts[b]; });
        words.resize(std::min<size_t>(words.size(), 5));
        return words;
    }

    static void expectSameHits(WordDocument& document, const std::string& text,
                               const std::vector<std::string>& words) {
        uint32_t count = 0;
        ASSERT_EQ(document.characterCount(count), MODULE_OK);
        for (const std::string& word : words) {
            std::vector<CharacterRange> hits;
            ASSERT_EQ(document.find({word.begin(), word.end()}, {0, count}, hits), MODULE_OK);
            EXPECT_EQ(hits.size(), occurrences(text, word)) << word;
        }
    }
};

class CorpusText : public ExtractedText {};

} // namespace

TEST_F(ExtractedText, HoldsWhatASearchFindsAndNoMore) {
    for (const auto& path : madeDocuments()) {
        SCOPED_TRACE(path);
        const std::string text = extract(path);
        const std::vector<std::string> words = frequentWords(text);
        EXPECT_FALSE(words.empty());
        std::unique_ptr<WordDocument> document;
        ASSERT_EQ(WordDocument::open(office(), path, "", testFolder(), document), MODULE_OK);
        expectSameHits(*document, text, words);
    }
}

TEST_F(CorpusText, HoldsWhatASearchFindsAndNoMore) {
    int compared = 0;
    for (const auto& path : collectedDocuments()) {
        // Its list labels are words, and the export contains labels as text.
        if (path.filename() == "Numbering.docx") {
            continue;
        }
        SCOPED_TRACE(path);
        const std::string text = extract(path);
        const std::vector<std::string> words = frequentWords(text);
        std::unique_ptr<WordDocument> document;
        if (words.empty() || WordDocument::open(office(), path, "", testFolder(), document) != MODULE_OK) {
            continue;
        }
        expectSameHits(*document, text, words);
        ++compared;
    }
    EXPECT_GT(compared, 0);
}

} // namespace lectern::engine::test
