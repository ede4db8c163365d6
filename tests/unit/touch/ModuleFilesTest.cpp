// SPDX-License-Identifier: Apache-2.0
// The functions that a module may have for files. This program is the module.
#include "touch/ModuleFiles.h"

#include "modules/TouchFunctions.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

struct Called {
    std::u16string path;
    std::u16string password;
    int32_t cancelDescriptor = 0;
    bool hasProgress = false;
    int32_t format = -1;
    int32_t result = 0;
};
Called called;
int document;

std::u16string textOf(const uint16_t* text) {
    std::u16string units;
    for (; *text != 0; ++text) {
        units += static_cast<char16_t>(*text);
    }
    return units;
}

} // namespace

// The module of spreadsheets; those of the other kinds lack the functions.
int32_t stg_open_any_file(const lectern_open_request* request, void** doc) {
    called.path = textOf(request->path);
    called.password = textOf(request->password);
    called.cancelDescriptor = request->cancel_descriptor;
    called.hasProgress = request->progress != nullptr;
    if (called.hasProgress) {
        request->progress(request->data, 70);
    }
    *doc = called.result == 0 ? &document : nullptr;
    return called.result;
}

int32_t stg_export(void* /*doc*/, int32_t format, int32_t descriptor) {
    called.format = format;
    return write(descriptor, "written", 7) == 7 ? called.result : -1;
}

namespace {

class ModuleFilesTest : public testing::Test {
protected:
    ModuleFilesTest() {
        called = Called();
        mkdtemp(folder.data());
    }
    ~ModuleFilesTest() override { std::filesystem::remove_all(folder); }

    std::string contents(const std::string& path) const {
        std::ostringstream bytes;
        bytes << std::ifstream(path).rdbuf();
        return bytes.str();
    }
    TouchResult save(const std::string& path, ExportFormat format = ExportFormat::Pdf) {
        return exportDocument(module, _EXCEL, &document, format, path.c_str());
    }

    void* module = dlopen(nullptr, RTLD_NOW);
    std::string folder = "/tmp/lectern-files-XXXXXX";
};

TEST_F(ModuleFilesTest, TheRequestHoldsTheFileThePasswordAndTheWatch) {
    void* opened = nullptr;
    int told = 0;
    const TouchView::OpenWatch watch{5, [&](int percent) { told = percent; }};
    EXPECT_EQ(openAnyFile(module, _EXCEL, "/d/caf\xC3\xA9", "secret", watch, &opened), 0);
    EXPECT_EQ(called.path, u"/d/caf\u00E9");
    EXPECT_EQ(called.password, u"secret");
    EXPECT_EQ(called.cancelDescriptor, 5);
    EXPECT_EQ(told, 70);
    EXPECT_EQ(opened, &document);
}

TEST_F(ModuleFilesTest, WithoutAWatchNothingIsTold) {
    void* opened = nullptr;
    called.result = 0;
    EXPECT_EQ(openAnyFile(module, _EXCEL, "/d/a", nullptr, {}, &opened), 0);
    EXPECT_EQ(called.password, u"");
    EXPECT_EQ(called.cancelDescriptor, -1);
    EXPECT_FALSE(called.hasProgress);
}

TEST_F(ModuleFilesTest, TheModulesCodePassesUnchanged) {
    void* opened = nullptr;
    called.result = 26;
    EXPECT_EQ(openAnyFile(module, _EXCEL, "/d/a", nullptr, {}, &opened), 26);
}

TEST_F(ModuleFilesTest, AModuleMayLackTheFunctions) {
    void* opened = nullptr;
    EXPECT_EQ(openAnyFile(module, _WORD, "/d/a", nullptr, {}, &opened), std::nullopt);
    const std::string path = folder + "/none";
    EXPECT_EQ(exportDocument(module, _PPT, &document, ExportFormat::Pdf, path.c_str()),
              TouchResult::NotSupported);
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(ModuleFilesTest, AnExportReplacesTheFilesContents) {
    const std::string path = folder + "/file";
    std::ofstream(path) << "something longer than that";
    EXPECT_EQ(save(path, ExportFormat::Text), TouchResult::Ok);
    EXPECT_EQ(called.format, LECTERN_EXPORT_TEXT);
    EXPECT_EQ(contents(path), "written");
    EXPECT_EQ(save(path), TouchResult::Ok);
    EXPECT_EQ(called.format, LECTERN_EXPORT_PDF);
}

TEST_F(ModuleFilesTest, AFailedExportLeavesAnEmptyFile) {
    called.result = 1;
    EXPECT_EQ(save(folder + "/file"), TouchResult::Failed);
    EXPECT_EQ(contents(folder + "/file"), "");
}

TEST_F(ModuleFilesTest, OnlyRegularFilesAreWritten) {
    const std::string fifo = folder + "/fifo";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    EXPECT_EQ(save(fifo), TouchResult::NotWritable) << "and nobody waits for a reader";
    EXPECT_EQ(save(folder), TouchResult::NotWritable);
    EXPECT_EQ(save(folder + "/none/file"), TouchResult::NotWritable);
    EXPECT_EQ(called.format, -1);
}

TEST_F(ModuleFilesTest, WithoutADocumentThereIsNothingToExport) {
    EXPECT_EQ(exportDocument(module, _EXCEL, nullptr, ExportFormat::Pdf, (folder + "/file").c_str()),
              TouchResult::NothingThere);
    EXPECT_FALSE(std::filesystem::exists(folder + "/file"));
}

} // namespace
