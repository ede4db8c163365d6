// SPDX-License-Identifier: Apache-2.0
#include "tests/system/command/ServedCommandFixture.h"

#include <png.h>
#include <sys/wait.h>

#include <sstream>

namespace {

// Removes the progress message, which a long open prints on a slow machine.
std::string withoutProgress(const std::string& errors) {
    std::istringstream lines(errors);
    std::string others;
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with("lectern: opening ")) {
            others += line + "\n";
        }
    }
    return others;
}

} // namespace

Outcome CommandTest::lectern(std::vector<std::string> arguments,
                             const std::map<std::string, std::string>& environment) {
    std::map<std::string, std::string> merged{{"DBUS_SESSION_BUS_ADDRESS", bus->address()}};
    for (const auto& [name, value] : environment) {
        merged[name] = value;
    }
    arguments.insert(arguments.begin(), LECTERN_PROGRAM);
    const TemporaryFolder output;
    Subprocess command(arguments, merged, output.path() + "/lectern");
    const auto status = command.wait(std::chrono::seconds(120));
    const bool exited = status && WIFEXITED(*status);
    return {exited ? WEXITSTATUS(*status) : -1, command.output(), withoutProgress(command.errors())};
}

std::string CommandTest::done(const std::vector<std::string>& arguments) {
    const Outcome outcome = lectern(arguments);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    return outcome.output;
}

Picture CommandTest::opened(const std::string& file, const std::vector<std::string>& options) {
    const std::string path = folder.path() + "/opened.png";
    std::vector<std::string> arguments{"open", "--classic", file, "-o", path};
    arguments.insert(arguments.end(), options.begin(), options.end());
    EXPECT_EQ(done(arguments), "");
    return readPicture(path);
}

std::vector<std::string> CommandTest::facts(const std::string& what, const std::string& file) {
    const TemporaryFolder output;
    Subprocess reader({"python3", FACTS_SCRIPT, what, file}, {{"PYTHONDONTWRITEBYTECODE", "1"}},
                      output.path() + "/facts");
    EXPECT_EQ(reader.wait(std::chrono::seconds(60)), std::optional<int>(0)) << reader.errors();
    std::istringstream lines(reader.output());
    std::vector<std::string> found;
    for (std::string line; std::getline(lines, line);) {
        found.push_back(line);
    }
    return found;
}

Picture CommandTest::readPicture(const std::string& path) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, path.c_str()) == 0) {
        ADD_FAILURE() << path << ": " << image.message;
        return {};
    }
    image.format = PNG_FORMAT_BGRA;
    Picture picture{static_cast<int>(image.width), static_cast<int>(image.height),
                    std::vector<uint32_t>(static_cast<size_t>(image.width) * image.height)};
    EXPECT_NE(png_image_finish_read(&image, nullptr, picture.pixels.data(), 0, nullptr), 0) << image.message;
    for (uint32_t& pixel : picture.pixels) {
        pixel &= 0xFFFFFFU;
    }
    return picture;
}

Picture CommandTest::seenBy(const TestDocument& document) {
    const auto count = static_cast<size_t>(document.width()) * static_cast<size_t>(document.height());
    Picture picture{document.width(), document.height(), {document.frame(), document.frame() + count}};
    for (uint32_t& pixel : picture.pixels) {
        pixel &= 0xFFFFFFU;
    }
    return picture;
}
