// SPDX-License-Identifier: Apache-2.0
#include "tests/system/support/Decks.h"

#include "tests/system/support/Subprocess.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

const std::string& folder() {
    static const TemporaryFolder temporary;
    return temporary.path();
}

std::string run(const std::vector<std::string>& command) {
    static int runs = 0;
    Subprocess process(command, {{"PYTHONDONTWRITEBYTECODE", "1"}, {"PYTHONPATH", SAMPLES_FOLDER}},
                       folder() + "/run" + std::to_string(runs++));
    EXPECT_EQ(process.wait(std::chrono::seconds(60)), std::optional<int>(0)) << process.errors();
    return process.output();
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

std::string madeSlides(const std::string& name, const std::string& python) {
    std::string path = folder() + "/" + name;
    run({"python3", "-c", "from pptx_writer import *\nOUT = '" + path + "'\n" + python});
    return path;
}
