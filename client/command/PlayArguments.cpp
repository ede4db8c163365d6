// SPDX-License-Identifier: Apache-2.0
#include "client/command/CommandLine.h"

namespace lectern {

Parsed<PlayArguments> parsePlay(const Words& words) {
    TextOption folder;
    TextOption size;
    TextOption password;
    ViewOptions view;
    CommandLine line(
        "play", {"SCRIPT", "FILE"},
        "Replays a script of timed touch input and saves what the view shows as numbered PNG files.",
        "SCRIPT FILE -o FOLDER");
    std::vector<GOptionEntry> entries = view.pictureEntries();
    entries.insert(entries.begin(), {textEntry("output", 'o', folder,
                                               "The folder for the pictures; created if missing", "FOLDER"),
                                     sizeEntry(size), passwordEntry(password)});
    if (auto refusal = line.parse(words, std::move(entries))) {
        return asParsed<PlayArguments>(std::move(*refusal));
    }
    if (!folder.given()) {
        return Misuse{"the folder for the pictures is missing; add -o FOLDER"};
    }
    PlayArguments arguments;
    arguments.script = line.operand(0);
    arguments.file = line.operand(1);
    arguments.folder = folder.value;
    arguments.password = password.optional();
    std::optional<Misuse> misuse = readSize(size, arguments.width, arguments.height);
    if (!misuse) {
        misuse = view.read(arguments.file, arguments.type, arguments.view);
    }
    if (misuse) {
        return *misuse;
    }
    return arguments;
}

} // namespace lectern
