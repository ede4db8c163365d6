// SPDX-License-Identifier: Apache-2.0
#include "engine/office/BodyWalk.h"

#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/text/XTextTable.hpp>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

class Walk {
public:
    Walk(Body& body, const std::function<void(const Reference<css::beans::XPropertySet>&)>& onBlock)
        : mBody(body), mOnBlock(onBlock) {}

    void walk(const OUString& table, const OUString& cell, const Reference<css::text::XText>& text) {
        const size_t index = mBody.texts.size();
        mBody.texts.push_back({table, cell, text, {}});
        const Reference<css::container::XEnumerationAccess> access(text, UNO_QUERY_THROW);
        const auto blocks = access->createEnumeration();
        while (blocks->hasMoreElements()) {
            const Reference<css::uno::XInterface> block(blocks->nextElement(), UNO_QUERY);
            if (index == 0)
                mOnBlock(propertiesOf(block));
            if (const Reference<css::text::XTextTable> inner(block, UNO_QUERY); inner.is())
                cellsOf(inner);
            else if (const Reference<css::text::XTextRange> range(block, UNO_QUERY); range.is())
                paragraph(range, index);
        }
    }

private:
    void paragraph(const Reference<css::text::XTextRange>& range, size_t text) {
        const uint32_t start = mBody.paragraphs.empty() ? 0 : mBody.length + 1;
        const auto length = static_cast<uint32_t>(range->getString().getLength());
        mBody.texts[text].paragraphs.push_back(mBody.paragraphs.size());
        mBody.paragraphs.push_back({range, start, length});
        mBody.length = start + length;
    }

    void cellsOf(const Reference<css::text::XTextTable>& table) {
        const Reference<css::container::XNamed> named(table, UNO_QUERY_THROW);
        const OUString tableName = named->getName();
        for (const OUString& name : table->getCellNames()) {
            const Reference<css::text::XText> cell(table->getCellByName(name), UNO_QUERY_THROW);
            walk(tableName, name, cell);
        }
    }

    Body& mBody;
    const std::function<void(const Reference<css::beans::XPropertySet>&)>& mOnBlock;
};

} // namespace

Body walkBody(const Reference<css::text::XTextDocument>& model,
              const std::function<void(const Reference<css::beans::XPropertySet>&)>& onBlock) {
    Body body;
    Walk(body, onBlock).walk(OUString(), OUString(), model->getText());
    return body;
}

} // namespace lectern::engine
