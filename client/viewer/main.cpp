// SPDX-License-Identifier: Apache-2.0
// lectern-view: reads documents in a window.
#include "client/viewer/Application.h"
#include "client/viewer/Settings.h"

#include <libintl.h>

#include <clocale>

using namespace lectern::viewer;

namespace {

void useTranslations() {
    std::setlocale(LC_ALL, "");
    bindtextdomain(TEXT_DOMAIN, (dataFolder() + "/locale").c_str());
    bind_textdomain_codeset(TEXT_DOMAIN, "UTF-8");
    textdomain(TEXT_DOMAIN);
}

} // namespace

int main(int argc, char** argv) {
    // Before anything starts a thread: where no session bus has the service, this process
    // starts one of its own, and both are alone in a namespace of shared memory.
    lectern_service_isolate(nullptr);
    useTranslations();
    return Application().run(argc, argv);
}
