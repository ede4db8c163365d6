// SPDX-License-Identifier: Apache-2.0
#include <cstdio>

#include "client/CommonCalls.h"
#include "client/command/Commands.h"
#include "client/command/OpenDocument.h"

namespace lectern {

int runInfo(const InfoArguments& arguments, Interrupt& interrupt) {
    OpenOptions options;
    options.password = arguments.password;
    Result<OpenDocument> opened = OpenDocument::open(arguments.file, options, interrupt);
    if (!opened) {
        return report(opened.error());
    }
    const Result<std::string> properties =
        common::getDocProperties(opened->bus(), opened->document().docid(), {.stop = interrupt.token()});
    if (!properties) {
        return report(properties.error());
    }
    std::printf("%s\n", properties->c_str());
    return std::fflush(stdout) == 0 ? statusDone : statusFailed;
}

} // namespace lectern
