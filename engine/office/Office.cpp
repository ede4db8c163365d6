// SPDX-License-Identifier: Apache-2.0
#include "engine/office/FileUrl.h"
#include "engine/office/OfficePrivate.h"
#include "engine/office/Profile.h"

#include <LibreOfficeKit/LibreOfficeKitEnums.h>
#include <LibreOfficeKit/LibreOfficeKitInit.h>
#include <com/sun/star/container/XSet.hpp>
#include <rtl/bootstrap.hxx>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace lectern::engine {

namespace {

// Services that the suite does without.
constexpr const char* UNWANTED_SERVICES[] = {
    // With its media player, the suite waits for the size of each film: 10 s per film
    // on machines without sound and video devices, sometimes for ever, and some of the
    // player's libraries crash the process.
    "com.sun.star.comp.media.Manager_GStreamer",
    // The suite looks for signatures in every document, which nobody asks for. For the
    // first, it makes a store of certificates and starts programs: 50 ms.
    "com.sun.star.security.DocumentDigitalSignatures",
};

void removeUnwantedServices(const css::uno::Reference<css::uno::XComponentContext>& context) {
    const css::uno::Reference<css::container::XSet> services(context->getServiceManager(),
                                                             css::uno::UNO_QUERY);
    for (const char* name : UNWANTED_SERVICES) {
        try {
            if (services.is()) {
                services->remove(css::uno::Any(OUString::createFromAscii(name)));
            }
        } catch (const css::uno::Exception&) {
            // This suite was built without it.
        }
    }
}

// Makes the suite read its own settings and those in `profile`, and nothing else: no
// extensions, which nobody can install here, and no settings of a desktop. It keeps
// changes of settings in memory. A user's profile it would write, in a thread.
void useSettings(const std::string& profile) {
    std::ifstream variables(LECTERN_OFFICE_PROGRAM "/fundamentalrc");
    const std::string name = "CONFIGURATION_LAYERS=";
    std::string used;
    for (std::string line; std::getline(variables, line);) {
        if (line.rfind(name, 0) == 0) {
            std::istringstream layers(line.substr(name.size()));
            for (std::string layer; layers >> layer;) {
                const bool own = layer.rfind("xcsxcu:", 0) == 0 || layer.rfind("res:", 0) == 0;
                used += own ? layer + " " : "";
            }
        }
    }
    used += "xcsxcu:" + fileUrl(profile + "/registry");
    rtl::Bootstrap::set("CONFIGURATION_LAYERS", toUnoText(used));
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
    // The suite then has no thread of its own; see Office.
    setenv("SAL_LOK_OPTIONS", "unipoll", 1);
    useSettings(profileDirectory);
    lok::Office* const suite = lok::lok_cpp_init(LECTERN_OFFICE_PROGRAM, fileUrl(profileDirectory).c_str());
    if (suite == nullptr) {
        std::fprintf(stderr, "the office suite in %s does not start\n", LECTERN_OFFICE_PROGRAM);
        return nullptr;
    }
    suite->setOptionalFeatures(LOK_FEATURE_DOCUMENT_PASSWORD | LOK_FEATURE_DOCUMENT_PASSWORD_TO_MODIFY);
    std::unique_ptr<Office> office(
        new Office(std::make_unique<Private>(Private{suite, processContext(), profileDirectory})));
    if (!office->d().context.is()) {
        std::fprintf(stderr, "the office suite does not give its component context\n");
        return nullptr;
    }
    removeUnwantedServices(office->d().context);
    return office;
}

bool Office::useTemporaryFolder(const std::string& folder) {
    setenv("TMPDIR", folder.c_str(), 1);
    // The fonts of a document are unpacked into the profile, wherever that is now.
    rtl::Bootstrap::set("UserInstallation", toUnoText(fileUrl(folder + "/profile")));
    // OUString utl::TempFile::SetTempNameBaseDirectory(const OUString& url). The suite
    // has chosen a folder when it started.
    using SetFolder = OUString (*)(const OUString&);
    const auto setFolder = reinterpret_cast<SetFolder>(
        suiteFunction("_ZN3utl8TempFile24SetTempNameBaseDirectoryERKN3rtl8OUStringE"));
    return setFolder != nullptr && !setFolder(toUnoText(fileUrl(folder))).isEmpty();
}

Office::Office(std::unique_ptr<Private> d) : mPrivate(std::move(d)) {}
Office::~Office() = default;

} // namespace lectern::engine
