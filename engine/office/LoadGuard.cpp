// SPDX-License-Identifier: Apache-2.0
#include "engine/office/LoadGuard.h"

#include "engine/office/OfficeGuard.h"

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/document/XDocumentEventListener.hpp>
#include <com/sun/star/frame/theGlobalEventBroadcaster.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextContent.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <com/sun/star/text/XTextTablesSupplier.hpp>
#include <cppuhelper/implbase1.hxx>

#include <tuple>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

// Tables within tables that are still laid out. 50 take a second, and each one more makes
// it worse: 100 take minutes. Documents by people have less than ten.
constexpr int32_t DEEPEST = 50;

// The number of tables that a table stands in, or DEEPEST if there are more.
int32_t depthOf(Reference<css::text::XTextContent> table) {
    int32_t depth = 0;
    for (; table.is() && depth < DEEPEST; ++depth) {
        Reference<css::text::XTextContent> outer;
        anyProperty(propertiesOf(table->getAnchor()), "TextTable") >>= outer;
        table = outer;
    }
    return depth;
}

// The suite takes the longer to find a table the deeper the tables before it are. Some of
// its filters make the innermost table first, others last, so both ends are looked at first.
bool isTooDeep(const Reference<css::text::XTextDocument>& text) {
    const Reference<css::text::XTextTablesSupplier> supplier(text, UNO_QUERY_THROW);
    const Reference<css::container::XIndexAccess> tables(supplier->getTextTables(), UNO_QUERY_THROW);
    const sal_Int32 count = tables->getCount();
    const auto isDeep = [&](sal_Int32 index) {
        return depthOf(Reference<css::text::XTextContent>(tables->getByIndex(index), UNO_QUERY)) == DEEPEST;
    };
    for (sal_Int32 first = 0, last = count - 1; count > DEEPEST && first <= last; ++first, --last) {
        if (isDeep(first) || isDeep(last)) {
            return true;
        }
    }
    return false;
}

} // namespace

class LoadGuard::Listener : public cppu::WeakImplHelper1<css::document::XDocumentEventListener> {
public:
    void SAL_CALL documentEventOccured(const css::document::DocumentEvent& event) override {
        if (event.EventName != "OnLoadFinished") {
            return;
        }
        const Reference<css::text::XTextDocument> text(event.Source, UNO_QUERY);
        std::ignore = guardedInOffice([&]() -> int32_t {
            if (text.is() && isTooDeep(text)) {
                hasRefused = true;
                text->getText()->setString("");
            }
            return MODULE_OK;
        });
    }
    void SAL_CALL disposing(const css::lang::EventObject& /*event*/) override {}

    bool hasRefused = false;
};

LoadGuard::LoadGuard(const Reference<css::uno::XComponentContext>& context)
    : mContext(context), mListener(new Listener) {
    css::frame::theGlobalEventBroadcaster::get(mContext)->addDocumentEventListener(mListener.get());
}

LoadGuard::~LoadGuard() {
    std::ignore = guardedInOffice([&]() -> int32_t {
        css::frame::theGlobalEventBroadcaster::get(mContext)->removeDocumentEventListener(mListener.get());
        return MODULE_OK;
    });
}

bool LoadGuard::hasRefused() const {
    return mListener->hasRefused;
}

void forgetReload(const Reference<css::frame::XModel>& model) {
    // SfxObjectShell* SfxObjectShell::GetShellFromComponent(const Reference<XInterface>&) and
    // void SfxObjectShell::SetAutoLoad(const INetURLObject&, sal_uInt32 time, bool reload),
    // which does not look at the address without a reload.
    using GetShell = void* (*)(const Reference<css::uno::XInterface>&);
    using SetReload = void (*)(void* shell, const void* address, sal_uInt32 time, bool reload);
    static const auto getShell = reinterpret_cast<GetShell>(suiteFunction(
        "_ZN14SfxObjectShell21GetShellFromComponentERKN3com3sun4star3uno9ReferenceINS3_10XInterfaceEEE"));
    static const auto setReload =
        reinterpret_cast<SetReload>(suiteFunction("_ZN14SfxObjectShell11SetAutoLoadERK13INetURLObjectjb"));
    void* const shell = getShell != nullptr ? getShell(model) : nullptr;
    if (shell != nullptr && setReload != nullptr) {
        setReload(shell, shell, 0, false);
    }
}

} // namespace lectern::engine
