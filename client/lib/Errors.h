// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Document.h>
#include <lectern/Result.h>

#include <string>

namespace lectern {

// Explains a rendering module's result code and what can be done about it, as
// half a sentence: "it is protected by a password; ...".
std::string moduleResultText(int code);

// The error of an open that failed with this code (not 0). The kind is the one
// that the file's name tells.
Error documentError(const std::string& path, DocumentKind kind, int code);

// The error of a paint whose rendering ended with this code (not 0).
Error paintError(int code);

// The error of an open document that stays lost, for this reason (not 0).
Error lossError(int code);

// The error of a call or of work whose stop token was used.
Error cancelledError();

// The error for a reply's "errorCode" and "errorText".
Error refusalError(const std::string& errorCode, const std::string& errorText);

// The error for a failed system call: a description of the attempt and the
// error number.
Error systemError(const std::string& attempt, int errorNumber);

} // namespace lectern
