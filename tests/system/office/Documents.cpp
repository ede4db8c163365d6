// SPDX-License-Identifier: Apache-2.0
#include "tests/system/office/Documents.h"

#include "engine/office/FileUrl.h"
#include "engine/office/OfficePrivate.h"
#include "tests/system/office/DocxBuilder.h"
#include "tests/system/office/OfficeFixture.h"
#include "tests/system/support/Python.h"

#include <algorithm>
#include <cstdlib>
#include <set>

namespace lectern::engine::test {

namespace {

const std::filesystem::path SAMPLES = SAMPLES_FOLDER;

std::filesystem::path scripted(const std::string& name, const std::string& script,
                               const std::vector<std::string>& arguments) {
    std::filesystem::path path = testFolder() / name;
    std::vector<std::string> command{SAMPLES / script};
    command.insert(command.end(), arguments.begin(), arguments.end());
    command.push_back(path);
    python(command);
    return path;
}

std::filesystem::path mixed() {
    DocxBuilder builder;
    builder.header("header above the harbour");
    for (int page = 1; page <= 4; ++page) {
        builder.paragraph(OfficeTest::numberedLines(6), "<w:jc w:val=\"both\"/>");
        builder.picture(3, 2).table(9, 1500, "cell ").picture(1, 1, false);
        builder.footnote("noted beneath").paragraph("").pageBreak();
    }
    return builder.write("mixed.docx");
}

} // namespace

std::vector<std::filesystem::path> madeDocuments() {
    static const std::vector<std::filesystem::path> paths = [] {
        const std::filesystem::path both = mixed();
        return std::vector<std::filesystem::path>{
            SAMPLES / "tour.docx",
            SAMPLES / "tour.doc",
            SAMPLES / "tour.txt",
            scripted("linked.docx", "make_linked_docx.py", {}),
            scripted("long.docx", "make_long_docx.py", {"12"}),
            both,
            savedAs(both, "doc"),
            OfficeTest::write("lines.txt", OfficeTest::numberedLines(40)),
        };
    }();
    return paths;
}

std::vector<std::filesystem::path> collectedDocuments() {
    static const std::set<std::string> kinds = {".doc", ".docx", ".txt"};
    const char* const folder = std::getenv("LECTERN_CORPUS");
    std::vector<std::filesystem::path> paths;
    if (folder != nullptr) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            if (kinds.count(entry.path().extension()) > 0) {
                paths.push_back(entry.path());
            }
        }
    }
    EXPECT_FALSE(paths.empty()) << "LECTERN_CORPUS names no folder of documents";
    std::sort(paths.begin(), paths.end());
    return paths;
}

std::filesystem::path savedAs(const std::filesystem::path& path, const std::string& extension) {
    std::filesystem::path target = testFolder() / path.filename();
    target.replace_extension(extension);
    const std::unique_ptr<lok::Document> document(
        OfficeTest::office().d().suite->documentLoad(fileUrl(path).c_str(), "Batch=true"));
    EXPECT_TRUE(document && document->saveAs(fileUrl(target).c_str(), extension.c_str(), "")) << path;
    return target;
}

} // namespace lectern::engine::test
