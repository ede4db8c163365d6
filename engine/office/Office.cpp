// SPDX-License-Identifier: Apache-2.0
#include "engine/office/FileUrl.h"
#include "engine/office/OfficePrivate.h"
#include "engine/office/Profile.h"

#include <LibreOfficeKit/LibreOfficeKitEnums.h>
#include <LibreOfficeKit/LibreOfficeKitInit.h>
#include <com/sun/star/container/XSet.hpp>

#include <cstdio>
#include <cstdlib>

namespace lectern::engine {

namespace {

// Without its player of sound and film the suite does not wait for one to tell
// how large a film is: 10 s for each where there are no devices, or for ever, or
// until a library of the player's brings the process down.
void removeMediaPlayer(const css::uno::Reference<css::uno::XComponentContext>& context) {
    const css::uno::Reference<css::container::XSet> services(context->getServiceManager(),
                                                             css::uno::UNO_QUERY);
    try {
        if (services.is())
            services->remove(css::uno::Any(OUString("com.sun.star.comp.media.Manager_GStreamer")));
    } catch (const css::uno::Exception&) {
        // This suite has none.
    }
}

} // namespace

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
    removeMediaPlayer(office->d().context);
    return office;
}

Office::Office(std::unique_ptr<Private> d) : mPrivate(std::move(d)) {}
Office::~Office() = default;

} // namespace lectern::engine
