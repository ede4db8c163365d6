// SPDX-License-Identifier: Apache-2.0
// The functions that run the sub-commands. Each returns the command's exit status.
#pragma once

#include "client/command/Arguments.h"
#include "client/command/Interrupt.h"
#include <lectern/Result.h>

namespace lectern {

inline constexpr int STATUS_DONE = 0;
inline constexpr int STATUS_FAILED = 1;
inline constexpr int STATUS_MISUSE = 2;

int runOpen(const OpenArguments& arguments, Interrupt& interrupt);
int runInfo(const PrintArguments& arguments, Interrupt& interrupt);
int runSheets(const PrintArguments& arguments, Interrupt& interrupt);
int runSlides(const PrintArguments& arguments, Interrupt& interrupt);
int runNote(const NoteArguments& arguments, Interrupt& interrupt);
int runSearch(const SearchArguments& arguments, Interrupt& interrupt);
int runPlay(const PlayArguments& arguments, Interrupt& interrupt);
int runServe(const ServeArguments& arguments, Interrupt& interrupt);
// Continues as the viewer's process, and returns only if there is no viewer.
int runView(const WindowArguments& arguments, Interrupt& interrupt);
int runCall(const CallArguments& arguments, Interrupt& interrupt);

// Reports an error on standard error, except an interruption by the user.
// Returns the exit status for the error.
int report(const Error& error);

} // namespace lectern
