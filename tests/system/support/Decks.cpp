// SPDX-License-Identifier: Apache-2.0
#include "tests/system/support/Decks.h"

#include "tests/system/support/Subprocess.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

using namespace std::string_literals;

namespace {

const std::string& folder() {
    static const TemporaryFolder temporary;
    return temporary.path();
}

std::string run(const std::vector<std::string>& command) {
    static int runs = 0;
    Subprocess process(command, {{"PYTHONDONTWRITEBYTECODE", "1"}, {"PYTHONPATH", SAMPLES_FOLDER}},
                       folder() + "/run" + std::to_string(runs++));
    EXPECT_EQ(process.wait(std::chrono::seconds(120)), std::optional<int>(0)) << process.errors();
    return process.output();
}

// Replaces bytes that occur once by as many others.
std::string replaced(std::string bytes, const std::string& from, const std::string& to) {
    const size_t at = bytes.find(from);
    EXPECT_NE(at, std::string::npos);
    EXPECT_EQ(bytes.find(from, at + 1), std::string::npos);
    EXPECT_EQ(from.size(), to.size());
    return at == std::string::npos ? bytes : bytes.replace(at, to.size(), to);
}

} // namespace

std::vector<WrittenSlide> readSlides(const std::string& path) {
    std::istringstream lines(run({"python3", READ_SLIDES, path}));
    std::vector<WrittenSlide> slides;
    std::string line;
    while (std::getline(lines, line)) {
        WrittenSlide& slide = slides.emplace_back();
        std::istringstream fields(line);
        std::getline(fields, slide.title, '\t');
        std::getline(fields, slide.note, '\t');
        std::getline(fields, slide.text, '\t');
    }
    return slides;
}

std::string slideSample(const std::string& name) {
    return SAMPLES_FOLDER "/" + name;
}

std::string longSlides(int count, int shapes) {
    std::string path = folder() + "/" + std::to_string(count) + "-" + std::to_string(shapes) + ".pptx";
    if (!std::filesystem::exists(path)) {
        run({"python3", slideSample("make_long_pptx.py"), std::to_string(count), path,
             std::to_string(shapes)});
    }
    return path;
}

std::string slideFile(const std::string& name, const std::string& bytes) {
    std::string path = folder() + "/" + name;
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
    return path;
}

std::string oldSlidesWithNone() {
    // Replaces the list's record of 196 bytes by an empty one, and its contents
    // by one record of an unknown type.
    return slideFile("none.ppt", replaced(readFile(slideSample("tour.ppt")),
                                          "\x0F\0\xF0\x0F\xC4\0\0\0"
                                          "\0\0\xF3\x03\x14\0\0\0"s,
                                          "\x0F\0\xF0\x0F\0\0\0\0"
                                          "\0\0\xFF\x04\xBC\0\0\0"s));
}

std::string oldSlidesEncrypted() {
    std::string bytes = replaced(readFile(slideSample("tour.ppt")), "\x14\0\0\0\x5F\xC0\x91\xE3"s,
                                 "\x14\0\0\0\xDF\xC4\xD1\xF3"s);
    const size_t document = bytes.find("\x0F\0\xE8\x03"s);
    EXPECT_LT(document, bytes.size() - 2000);
    for (size_t i = document; i < document + 2000 && i < bytes.size(); ++i) {
        bytes[i] = static_cast<char>(bytes[i] ^ 0x5A);
    }
    return slideFile("encrypted.ppt", bytes);
}

std::string oldSlidesSavedInView(char view) {
    std::string bytes = readFile(slideSample("tour.ppt"));
    // The record about the last save; its header comes first.
    const size_t save = bytes.find("\0\0\xF5\x0F\x1C\0\0\0"s);
    constexpr size_t VIEW = 32;
    bytes.at(save + VIEW) = view;
    return slideFile("saved-in-view.ppt", bytes);
}

std::string oldSlidesWithSound() {
    const std::string source = folder() + "/sound.fodp";
    run({"python3", slideSample("make_sound_slides.py"), source});
    run({"soffice", "-env:UserInstallation=file://" + folder() + "/profile", "--headless", "--convert-to",
         "ppt", "--outdir", folder(), source});
    std::string path = folder() + "/sound.ppt";
    EXPECT_NE(readFile(path).find("RIFF"), std::string::npos) << path;
    return path;
}

std::string madeSlides(const std::string& name, const std::string& python) {
    std::string path = folder() + "/" + name;
    run({"python3", "-c", "from pptx_writer import *\nOUT = '" + path + "'\n" + python});
    return path;
}
