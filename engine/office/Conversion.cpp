// SPDX-License-Identifier: Apache-2.0
#include "engine/office/Conversion.h"

#include "engine/office/FileUrl.h"
#include "engine/office/LoadGuard.h"
#include "modules/ModuleResults.h"

#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/document/UpdateDocMode.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/util/XCloseable.hpp>

#include <cstddef>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

template<class Value>
css::beans::PropertyValue named(const char* name, const Value& value) {
    css::beans::PropertyValue property;
    property.Name = OUString::createFromAscii(name);
    property.Value <<= value;
    return property;
}

template<std::size_t count>
css::uno::Sequence<css::beans::PropertyValue> sequenceOf(const css::beans::PropertyValue (&values)[count]) {
    return {values, static_cast<sal_Int32>(count)};
}

// An open document without a window. The destructor closes it.
class HiddenDocument {
public:
    HiddenDocument(const Office::Private& office, const std::string& path, const Import& import) {
        const css::beans::PropertyValue how[] = {
            named("Hidden", true),
            named("Silent", true),
            named("FilterName", toUnoText(import.filter)),
            named("FilterOptions", toUnoText(import.options)),
            named("MacroExecutionMode", css::document::MacroExecMode::NEVER_EXECUTE),
            named("UpdateDocMode", css::document::UpdateDocMode::NO_UPDATE),
        };
        mModel.set(css::frame::Desktop::create(office.context)
                       ->loadComponentFromURL(toUnoText(fileUrl(path)), "_blank", 0, sequenceOf(how)),
                   UNO_QUERY);
    }
    ~HiddenDocument() {
        try {
            if (const Reference<css::util::XCloseable> document(mModel, UNO_QUERY); document.is()) {
                document->close(true);
            }
        } catch (const css::uno::Exception&) {
            // The suite keeps it, until the process ends.
        }
    }
    HiddenDocument(const HiddenDocument&) = delete;
    HiddenDocument& operator=(const HiddenDocument&) = delete;

    // Null when the suite refuses the file.
    const Reference<css::frame::XModel>& model() const { return mModel; }

private:
    Reference<css::frame::XModel> mModel;
};

void storeTo(const Reference<css::frame::XModel>& model, const std::string& path,
             const css::uno::Sequence<css::beans::PropertyValue>& how) {
    const Reference<css::frame::XStorable> document(model, UNO_QUERY_THROW);
    document->storeToURL(toUnoText(fileUrl(path)), how);
}

} // namespace

int32_t convert(Office::Private& office, const std::string& path, const Import& import,
                const std::string& temporaryDirectory, std::unique_ptr<TemporaryCopy>& copy,
                const std::function<void(const Reference<css::frame::XModel>&)>& adjust) {
    const LoadGuard guard(office.context);
    const HiddenDocument document(office, path, import);
    if (!document.model().is()) {
        return MODULE_DAMAGED;
    }
    if (guard.hasRefused()) {
        return MODULE_TOO_COMPLEX;
    }
    if (adjust) {
        adjust(document.model());
    }
    auto target = std::make_unique<TemporaryCopy>(temporaryDirectory, import.extension, "");
    if (target->path().empty()) {
        return MODULE_FAILED;
    }
    store(document.model(), target->path(), import.target);
    copy = std::move(target);
    return MODULE_OK;
}

void store(const Reference<css::frame::XModel>& model, const std::string& path, const std::string& filter,
           const std::string& options) {
    const css::beans::PropertyValue how[] = {named("FilterName", toUnoText(filter)),
                                             named("FilterOptions", toUnoText(options))};
    storeTo(model, path, sequenceOf(how));
}

void storePdf(const Reference<css::frame::XModel>& model, const std::string& path,
              const std::string& filter) {
    const css::beans::PropertyValue settings[] = {named("ExportHiddenSlides", true)};
    const css::beans::PropertyValue how[] = {named("FilterName", toUnoText(filter)),
                                             named("FilterData", sequenceOf(settings))};
    storeTo(model, path, sequenceOf(how));
}

} // namespace lectern::engine
