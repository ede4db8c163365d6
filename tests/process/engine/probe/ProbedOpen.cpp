// SPDX-License-Identifier: Apache-2.0
// Takes the place of WordDocument::open in a program that is linked with --wrap for it:
// opens the document, then makes the attempts that it lists.
#include "engine/office/word/WordDocument.h"
#include "modules/ModuleResults.h"
#include "tests/process/engine/probe/Probe.h"

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

using lectern::engine::Office;
using lectern::engine::WordDocument;

void probe(const std::string& path, const std::string& folder) {
    // A file that grows over its limit otherwise ends the process.
    std::signal(SIGXFSZ, SIG_IGN);
    std::ifstream lines(path);
    const std::string unfinished = folder + "/unfinished";
    std::ofstream outcomes(unfinished);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t end = line.find('=');
        const std::string detail = end == std::string::npos ? "" : line.substr(end + 1);
        outcomes << lectern::test::outcomeOf(line.substr(0, end), detail) << std::endl;
    }
    outcomes.close();
    std::rename(unfinished.c_str(), (folder + "/" + lectern::test::OUTCOMES).c_str());
}

} // namespace

namespace lectern::test {

std::int32_t openWithout(Office& office, const std::string& path, const std::string& password,
                         const std::string& folder,
                         std::unique_ptr<WordDocument>& document) __asm__("__real_" WORD_DOCUMENT_OPEN);
std::int32_t openWithProbe(Office& office, const std::string& path, const std::string& password,
                           const std::string& folder,
                           std::unique_ptr<WordDocument>& document) __asm__("__wrap_" WORD_DOCUMENT_OPEN);

std::int32_t openWithProbe(Office& office, const std::string& path, const std::string& password,
                           const std::string& folder, std::unique_ptr<WordDocument>& document) {
    const std::int32_t result = openWithout(office, path, password, folder, document);
    const std::string name = std::filesystem::path(path).filename();
    if (result == MODULE_OK && name.rfind(PROBE_PREFIX, 0) == 0) {
        probe(path, folder);
    }
    return result;
}

} // namespace lectern::test
