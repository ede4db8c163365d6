// SPDX-License-Identifier: Apache-2.0
// An office suite for tests. Its documents are text files, one "key=value" in
// each line:
//   rows          rows of the laid-out text at 72 dpi (default 1000)
//   name          the document's name; author is the number of layouts done
//   password      needed to open it
//   text          what can be searched and selected (default none); each hit
//                 has a rectangle (position, 0, length, 1)
//   click         type:number, or 6:address, of what lies everywhere
//   open, surface, count, scroll, information, find    how to misbehave there
//   progress      percentages that an open of any file tells at its start
//   export        how to misbehave in an export, which writes the format and the
//                 text; exported, if set, is the size in bytes that the file gets
//   lie           give impossible numbers
//   portions      what there is to do while no call waits (default 0); the
//                 last one makes the file "prepared" in the temporary folder
// A file whose name starts with "other-kind" is of the wrong kind, one without
// any line is damaged. Row r of the text is painted as 0xFF000000 + r, what
// lies below its end white. There are ten characters in each row.

#include "engine/office/Exporting.h"
#include "engine/office/Office.h"
#include "modules/ModuleResults.h"
#include "tests/fakes/office/FakeSettings.h"
#include "tests/fakes/office/Misbehaviour.h"

#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace lectern::engine {

struct Office::Private {};

// As the real suite, this one handles signals of crashes; its handlers never return.
std::unique_ptr<Office> Office::start(const std::string& profileDirectory) {
    for (const int signal : {SIGSEGV, SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGTRAP, SIGSYS}) {
        std::signal(signal, [](int) {
            for (;;) {
                pause();
            }
        });
    }
    // Create the profile, by which a test can see that the office was started.
    std::error_code error;
    if (!std::filesystem::create_directories(profileDirectory, error)) {
        return nullptr;
    }
    std::ofstream(profileDirectory + "/started") << "yes\n";
    return std::unique_ptr<Office>(new Office(std::make_unique<Private>()));
}

void Office::run(Turn& turn) {
    for (;;) {
        turn.take(FOREVER);
    }
}

bool Office::prepareNext() {
    return false;
}

bool Office::useTemporaryFolder(const std::string& folder) {
    return setenv("TMPDIR", folder.c_str(), 1) == 0;
}

std::vector<std::string> Office::readPaths() const {
    return {};
}

int32_t exportFile(Office&, const AnyFile& file, DocumentKind kind, ExportFormat format,
                   const std::string& target) {
    fake::Settings settings = fake::readSettings(file.path);
    if (settings["password"] != file.password) {
        return file.password.empty() ? MODULE_NEEDS_PASSWORD : MODULE_WRONG_PASSWORD;
    }
    std::ofstream out(target);
    out << static_cast<int>(kind) << static_cast<int>(format) << ' ' << settings["text"];
    if (const std::string size = settings["exported"]; !size.empty()) {
        out.seekp(std::stoll(size) - 1).put('.'); // takes no space
    }
    out.flush();
    return fake::misbehave(settings["export"]);
}

Office::Office(std::unique_ptr<Private> d) : mPrivate(std::move(d)) {}
Office::~Office() = default;

} // namespace lectern::engine
