// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/command/Arguments.h"
#include "client/command/Interrupt.h"
#include <lectern/Document.h>

#include <functional>
#include <optional>
#include <string>

namespace lectern {

// The work of a sub-command on an open document, within these limits.
using DocumentWork = std::function<Failure(Document& document, const CallLimits& limits)>;

// The operand FILE of a sub-command: a path, or STANDARD_INPUT and its type.
struct DocumentName {
    const std::string& file;
    const std::optional<std::string>& type;
};

// The options of an open of this kind, and a password.
OpenOptions openOptions(const ViewArguments& view, const std::optional<std::string>& password);

// Opens a document in the session's service or in a private one, runs the work,
// reports errors, and returns the exit status. Shows progress during the open
// and starts to watch for interrupts. REQUIRES: the process has one thread.
int withDocument(const DocumentName& name, OpenOptions options, Interrupt& interrupt,
                 const DocumentWork& work);

} // namespace lectern
