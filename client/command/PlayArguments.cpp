// SPDX-License-Identifier: Apache-2.0
#include "client/command/CommandLine.h"

namespace lectern {

Parsed<PlayArguments> parsePlay(const Words& words) {
    TextOption folder;
    TextOption size;
    TextOption password;
    TextOption type;
    CommandLine line(
        "play", {"SCRIPT", "FILE"},
        "Replays a script of timed touch input and saves what the view shows as numbered PNG files.",
        "SCRIPT FILE -o FOLDER");
    if (auto refusal = line.parse(
            words,
            {textEntry("output", 'o', folder, "The folder for the pictures; created if missing", "FOLDER"),
             sizeEntry(size), passwordEntry(password), typeEntry(type)})) {
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
        misuse = readType(type, arguments.file, arguments.type);
    }
    if (misuse) {
        return *misuse;
    }
    return arguments;
}

} // namespace lectern
