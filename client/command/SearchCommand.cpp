// SPDX-License-Identifier: Apache-2.0
#include <cstdio>

#include "client/CommonCalls.h"
#include "client/Json.h"
#include "client/command/Commands.h"
#include "client/command/OpenDocument.h"

namespace lectern {

int runSearch(const SearchArguments& arguments, Interrupt& interrupt) {
    OpenOptions options;
    options.password = arguments.password;
    Result<OpenDocument> opened = OpenDocument::open(arguments.file, options, interrupt);
    if (!opened) {
        return report(opened.error());
    }
    const Result<int> hits = common::search(opened->bus(), opened->document().docid(), arguments.text,
                                            {.stop = interrupt.token()});
    if (!hits) {
        return report(hits.error());
    }
    std::printf("%s\n", JsonMembers().add("resultcount", *hits).text().c_str());
    return std::fflush(stdout) == 0 ? statusDone : statusFailed;
}

} // namespace lectern
