// SPDX-License-Identifier: Apache-2.0
#include "client/command/Commands.h"
#include "client/command/Listing.h"
#include "client/command/OpenDocument.h"
#include <lectern/CommonCalls.h>

namespace lectern {

int runInfo(const PrintArguments& arguments, Interrupt& interrupt) {
    const auto work = [&](Document& document, const CallLimits& limits) -> Failure {
        const Result<std::string> properties = document.ask(common::getDocProperties(), limits);
        if (!properties) {
            return properties.error();
        }
        return print(arguments.json ? *properties + "\n" : propertyListing(document.kind(), *properties));
    };
    return withDocument({arguments.file, arguments.type}, openOptions(arguments.view, arguments.password),
                        interrupt, work);
}

} // namespace lectern
