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

// Removes the suite's media player. With it, the suite waits for the player to
// report the size of each film: 10 s per film on machines without sound and video
// devices, sometimes for ever, and some of the player's libraries crash the process.
void removeMediaPlayer(const css::uno::Reference<css::uno::XComponentContext>& context) {
    const css::uno::Reference<css::container::XSet> services(context->getServiceManager(),
                                                             css::uno::UNO_QUERY);
    try {
        if (services.is()) {
            services->remove(css::uno::Any(OUString("com.sun.star.comp.media.Manager_GStreamer")));
        }
    } catch (const css::uno::Exception&) {
        // This suite was built without a media player.
    }
}

} // namespace

std::unique_ptr<Office> Office::start(const std::string& profileDirectory) {
    if (!writeProfile(profileDirectory)) {
        return nullptr;
    }
    // The suite decodes file names in the locale's encoding; paths here are UTF-8.
    setenv("LC_ALL", "C.UTF-8", 1);
    // Without this, the suite computes the place of every tracked change that is
    // accepted, to report it; in some documents this never ends.
    setenv("DISABLE_REDLINE", "1", 1);
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
