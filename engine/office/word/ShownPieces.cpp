// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/ShownPieces.h"

#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;

namespace {

using Kind = ShownPiece::Kind;

// An input field's text is part of the paragraph; that of any other field is computed.
Kind kindOfField(const Reference<css::beans::XPropertySet>& portion) {
    const auto field = property<Reference<css::lang::XServiceInfo>>(portion, "TextField");
    return field.is() && field->supportsService("com.sun.star.text.TextField.Input") ? Kind::Control
                                                                                     : Kind::Unit;
}

class Reader {
public:
    void read(const Reference<css::container::XEnumerationAccess>& portions) {
        const auto all =
            portions.is() ? portions->createEnumeration() : Reference<css::container::XEnumeration>();
        while (all.is() && all->hasMoreElements()) {
            add(Reference<css::text::XTextRange>(all->nextElement(), UNO_QUERY));
        }
    }

    ShownParagraph shown;

private:
    void add(const Reference<css::text::XTextRange>& range) {
        const auto properties = propertiesOf(range);
        const auto type = property<OUString>(properties, "TextPortionType");
        if (type.isEmpty()) {
            read({range, UNO_QUERY}); // a selection's elements are paragraphs, which hold portions
        } else if (type == "Text") {
            addLetters(range, properties);
        } else if (type == "TextField") {
            addPiece(kindOfField(properties), range);
        } else if (type == "Footnote") {
            addPiece(Kind::Unit, range);
        } else if (type == "Ruby") {
            addReading(properties);
        } else if (type == "ContentControl" || type == "InContentMetadata") {
            shown.isPlain = false;
            read({anyProperty(properties, type == "ContentControl" ? "ContentControl" : "InContentMetadata"),
                  UNO_QUERY});
        } else if (type != "Bookmark" && type != "SoftPageBreak") {
            shown.isPlain = false; // characters that show no text, such as an anchor or a deletion
        }
    }

    void addLetters(const Reference<css::text::XTextRange>& range,
                    const Reference<css::beans::XPropertySet>& properties) {
        if (property<bool>(properties, "CharHidden")) {
            shown.isPlain = false;
        } else {
            shown.pieces.push_back({Kind::Letters, range, toText(range->getString()), {}});
        }
    }

    void addPiece(Kind kind, const Reference<css::text::XTextRange>& range) {
        shown.isPlain = false;
        shown.pieces.push_back({kind, range, toText(range->getString()), {}});
    }

    // The start of a reading names its text; its end follows the letters.
    void addReading(const Reference<css::beans::XPropertySet>& properties) {
        shown.isPlain = false;
        if (property<bool>(properties, "IsStart")) {
            mReading = toText(property<OUString>(properties, "RubyText"));
        } else if (!shown.pieces.empty()) {
            shown.pieces.back().reading = std::exchange(mReading, {});
        }
    }

    std::u16string mReading;
};

} // namespace

ShownParagraph shownParagraph(const Reference<css::text::XTextRange>& paragraph) {
    Reader reader;
    reader.read({paragraph, UNO_QUERY});
    return std::move(reader.shown);
}

} // namespace lectern::engine
