// SPDX-License-Identifier: Apache-2.0
#include "engine/office/OfficePrivate.h"

#include "engine/office/FileUrl.h"
#include "engine/office/Profile.h"

#include <LibreOfficeKit/LibreOfficeKitEnums.h>
#include <LibreOfficeKit/LibreOfficeKitInit.h>

#include <cstdio>
#include <cstdlib>

namespace lectern::engine {

std::unique_ptr<Office> Office::start(const std::string& profileDirectory) {
    if (!writeProfile(profileDirectory))
        return nullptr;
    // The suite takes file names in the locale's encoding; paths here are UTF-8.
    setenv("LC_ALL", "C.UTF-8", 1);
    lok::Office* const suite = lok::lok_cpp_init(LECTERN_OFFICE_PROGRAM, fileUrl(profileDirectory).c_str());
    if (suite == nullptr) {
        std::fprintf(stderr, "the office suite in %s does not start\n", LECTERN_OFFICE_PROGRAM);
        return nullptr;
    }
    suite->setOptionalFeatures(LOK_FEATURE_DOCUMENT_PASSWORD | LOK_FEATURE_DOCUMENT_PASSWORD_TO_MODIFY);
    std::unique_ptr<Office> office(new Office(std::make_unique<Private>(Private{suite, processContext()})));
    if (!office->d().context.is()) {
        std::fprintf(stderr, "the office suite does not give its component context\n");
        return nullptr;
    }
    return office;
}

Office::Office(std::unique_ptr<Private> d) : mPrivate(std::move(d)) {}
Office::~Office() = default;

} // namespace lectern::engine
