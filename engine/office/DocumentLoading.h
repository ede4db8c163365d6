// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/AnyFile.h"
#include "engine/office/OfficePrivate.h"

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/text/XTextDocument.hpp>

#include <memory>
#include <string>

namespace lectern::engine {

// A loaded document of any kind.
struct LoadedModel {
    std::unique_ptr<lok::Document> painter;
    css::uno::Reference<css::frame::XModel> model;
};

// Loads a document. An empty password means no password. `temporaryDirectory`
// receives the copy of a text in another encoding, and that of a compound file
// which the suite accepts only without its impossible streams. `language`, such
// as "en-US", decides formats that depend on the reader's language; empty leaves
// them to the suite. Returns a module_result code; on failure `model` is not
// changed.
int32_t loadModel(Office::Private& office, const std::string& path, const std::string& password,
                  const std::string& temporaryDirectory, LoadedModel& model, const std::string& language = {},
                  const LoadProgress& progress = {});

// Whether the suite has read the file as plain text, as it does with what it does not know.
bool isReadAsText(const css::uno::Reference<css::frame::XModel>& model);

// One text document through two interfaces: one paints it and takes points, the
// other changes and reads the model.
struct OpenedDocument {
    std::unique_ptr<lok::Document> painter;
    css::uno::Reference<css::text::XTextDocument> model;
};

// Loads a word-processing document, as loadModel does. The model's controllers
// are returned locked, so that its original pages are never laid out.
int32_t loadDocument(Office::Private& office, const std::string& path, const std::string& password,
                     const std::string& temporaryDirectory, OpenedDocument& opened);

// Fills `opened` if the loaded model is a text document, as loadDocument does; otherwise
// returns MODULE_WRONG_KIND.
int32_t openAsText(LoadedModel loaded, OpenedDocument& opened);

// Creates an empty document in the state that loadDocument returns.
int32_t newDocument(Office::Private& office, OpenedDocument& opened);

} // namespace lectern::engine
