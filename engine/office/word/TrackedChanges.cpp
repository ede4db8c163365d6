// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/TrackedChanges.h"

#include <com/sun/star/document/RedlineDisplayType.hpp>
#include <com/sun/star/document/XRedlinesSupplier.hpp>
#include <com/sun/star/frame/DispatchHelper.hpp>
#include <com/sun/star/frame/XDispatchProvider.hpp>
#include <com/sun/star/frame/XFrame.hpp>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

bool hasTrackedChanges(const Reference<css::text::XTextDocument>& model) {
    const Reference<css::document::XRedlinesSupplier> supplier(model, UNO_QUERY);
    const auto changes = supplier.is() ? supplier->getRedlines()->createEnumeration()
                                       : Reference<css::container::XEnumeration>();
    return changes.is() && changes->hasMoreElements();
}

} // namespace

void acceptTrackedChanges(const Reference<css::text::XTextDocument>& model) {
    setProperty(propertiesOf(model), "RecordChanges", false);
    if (!hasTrackedChanges(model)) {
        return;
    }
    // A document can forbid its readers to accept changes.
    setProperty(propertiesOf(model), "RedlineProtectionKey", css::uno::Sequence<sal_Int8>());
    const Reference<css::frame::XDispatchProvider> frame(model->getCurrentController()->getFrame(),
                                                         UNO_QUERY_THROW);
    css::frame::DispatchHelper::create(processContext())
        ->executeDispatch(frame, ".uno:AcceptAllTrackedChanges", "", 0, {});
    // In a document that only allows reading, nothing was accepted.
    if (hasTrackedChanges(model)) {
        setProperty(propertiesOf(model), "RedlineDisplayType", css::document::RedlineDisplayType::INSERTED);
    }
}

} // namespace lectern::engine
