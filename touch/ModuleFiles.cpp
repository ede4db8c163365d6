// SPDX-License-Identifier: Apache-2.0
#include "touch/ModuleFiles.h"

#include "modules/OptionalSymbol.h"
#include "modules/TouchFunctions.h"
#include "view/ModuleArguments.h"
#include "view/OutputFile.h"
#include "view/TextHelpers.h"

#include <unistd.h>

#include <string>

namespace {

// The functions of the three modules differ in their prefixes only.
template<typename Function>
Function* prvFunctionOf(void* module, doctype_t kind, const char* name) {
    const char* prefix = kind == _EXCEL ? "stg_" : kind == _PPT ? "sstg_" : "wtg_";
    return optionalSymbol<Function>(module, (std::string(prefix) + name).c_str());
}

void prvTellProgress(void* watch, int32_t percent) {
    static_cast<const TouchView::OpenWatch*>(watch)->progress(percent);
}

} // namespace

std::optional<int> openAnyFile(void* module, doctype_t kind, const char* path, const char* password,
                               const TouchView::OpenWatch& watch, void** document) {
    auto* const open = prvFunctionOf<decltype(wtg_open_any_file)>(module, kind, "open_any_file");
    if (open == nullptr) {
        return std::nullopt;
    }
    const Utf16Text path16(path);
    const Utf16Text password16(password);
    const Utf16Text fonts(FONT_DIRECTORY);
    const Utf16Text temporary(TEMPORARY_DIRECTORY);
    TouchView::OpenWatch told = watch;
    const lectern_open_request request{path16.get(),
                                       password16.get(),
                                       fonts.get(),
                                       temporary.get(),
                                       watch.cancelDescriptor,
                                       watch.progress ? prvTellProgress : nullptr,
                                       &told};
    return open(&request, document);
}

TouchResult exportDocument(void* module, doctype_t kind, void* document, ExportFormat format,
                           const char* path) {
    auto* const save = prvFunctionOf<decltype(wtg_export)>(module, kind, "export");
    if (save == nullptr) {
        return TouchResult::NotSupported;
    }
    if (document == nullptr) {
        return TouchResult::NothingThere;
    }
    const lectern::FileDescriptor file = openForWriting(path);
    if (!file) {
        return TouchResult::NotWritable;
    }
    const int32_t number = format == ExportFormat::Pdf ? LECTERN_EXPORT_PDF : LECTERN_EXPORT_TEXT;
    if (save(document, number, file.get()) == 0) {
        return TouchResult::Ok;
    }
    (void)!ftruncate(file.get(), 0); // no part of a document is taken for one
    return TouchResult::Failed;
}
