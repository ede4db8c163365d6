// SPDX-License-Identifier: Apache-2.0
#include "client/command/Commands.h"
#include "client/command/OpenDocument.h"
#include "client/command/play/FrameFolder.h"
#include "client/command/play/Player.h"
#include "client/command/play/Script.h"

namespace lectern {

int runPlay(const PlayArguments& arguments, Interrupt& interrupt) {
    const Result<play::Script> script = play::readScript(arguments.script);
    if (!script) {
        return report(script.error());
    }
    Result<play::FrameFolder> folder = play::FrameFolder::open(arguments.folder);
    if (!folder) {
        return report(folder.error());
    }
    const auto work = [&](Document& document, const CallLimits& limits) -> Failure {
        const Failure failure = document.paint(limits);
        return failure ? failure : play::Player(document, *folder, limits).play(*script);
    };
    OpenOptions options = openOptions(arguments.view, arguments.password);
    options.width = arguments.width;
    options.height = arguments.height;
    return withDocument({arguments.file, arguments.type}, std::move(options), interrupt, work);
}

} // namespace lectern
