// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/OfficePrivate.h"

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/text/XTextDocument.hpp>

#include <memory>
#include <string>

namespace lectern::engine {

// A document of any kind as it comes from its file.
struct LoadedModel {
    std::unique_ptr<lok::Document> painter;
    css::uno::Reference<css::frame::XModel> model;
};

// Loads a document. An empty password is none. temporaryDirectory is for a copy
// of a text in another encoding. A module_result code; on failure `model` is
// untouched.
int32_t loadModel(Office::Private& office, const std::string& path, const std::string& password,
                  const std::string& temporaryDirectory, LoadedModel& model);

// One text, seen from both sides: what paints and takes points, and the
// model that is changed and asked.
struct OpenedDocument {
    std::unique_ptr<lok::Document> painter;
    css::uno::Reference<css::text::XTextDocument> model;
};

// Loads a word-processing document, as loadModel does. The model's controllers
// come back locked, so that the pages it was written for are never laid out.
int32_t loadDocument(Office::Private& office, const std::string& path, const std::string& password,
                     const std::string& temporaryDirectory, OpenedDocument& opened);

// Makes an empty document, as loadDocument would load one.
int32_t newDocument(Office::Private& office, OpenedDocument& opened);

} // namespace lectern::engine
