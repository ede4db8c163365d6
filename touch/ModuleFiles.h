// SPDX-License-Identifier: Apache-2.0
// Opening and writing files by the functions that a module may have for touch views
// (modules/TouchFunctions.h).
#pragma once

#include "touch/TouchView.h"
#include "view/OfficeBase.h"

#include <optional>

// Opens a file of any name with the module of a kind of documents. Returns the module's
// code, or nothing if it lacks the function.
std::optional<int> openAnyFile(void* module, doctype_t kind, const char* path, const char* password,
                               const TouchView::OpenWatch& watch, void** document);

// Writes a document to a regular file, which is created or emptied. After a failure the
// file is empty.
TouchResult exportDocument(void* module, doctype_t kind, void* document, ExportFormat format,
                           const char* path);
