// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/OfficePrivate.h"
#include "engine/office/TemporaryCopy.h"

#include <com/sun/star/frame/XModel.hpp>

#include <functional>
#include <memory>
#include <string>

namespace lectern::engine {

// The suite's filters for a conversion, by their names.
struct Import {
    std::string filter;
    std::string options;
    std::string target; // the filter that writes the copy
    std::string extension;
};

// Reads a file with a filter that the suite would not choose itself, and writes a copy in
// a format that it knows by its contents. `adjust` may change the document between.
// Returns a module_result code; `copy` is set with MODULE_OK. Throws what the suite throws.
int32_t convert(Office::Private& office, const std::string& path, const Import& import,
                const std::string& temporaryDirectory, std::unique_ptr<TemporaryCopy>& copy,
                const std::function<void(const css::uno::Reference<css::frame::XModel>&)>& adjust = {});

// Writes a document to a file, which is created or overwritten, with a filter of the suite.
void store(const css::uno::Reference<css::frame::XModel>& model, const std::string& path,
           const std::string& filter, const std::string& options = {});
// The same for its pages as PDF, with slides that are hidden in a show.
void storePdf(const css::uno::Reference<css::frame::XModel>& model, const std::string& path,
              const std::string& filter);

} // namespace lectern::engine
