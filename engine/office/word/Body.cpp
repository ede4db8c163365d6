// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/Body.h"

#include "engine/office/word/ShownPieces.h"

#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/drawing/XShapes.hpp>
#include <com/sun/star/text/XTextFrame.hpp>
#include <com/sun/star/text/XTextRangeCompare.hpp>
#include <com/sun/star/text/XTextTable.hpp>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <optional>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

bool isDigit(sal_Unicode unit) {
    return unit >= '0' && unit <= '9';
}

// The row number in a cell's name: 12 for "B12". The names of cells in split
// cells continue after a dot.
OUString rowOf(const OUString& cell) {
    sal_Int32 first = 0;
    while (first < cell.getLength() && !isDigit(cell[first])) {
        ++first;
    }
    sal_Int32 last = first;
    while (last < cell.getLength() && isDigit(cell[last])) {
        ++last;
    }
    return cell.copy(first, last - first);
}

// The frame that a shape is, or that a drawing contains as its text box; may be null.
Reference<css::text::XTextFrame> frameOf(const Reference<css::drawing::XShape>& shape) {
    const Reference<css::text::XTextFrame> frame(shape, UNO_QUERY);
    return frame.is() ? frame
                      : property<Reference<css::text::XTextFrame>>(propertiesOf(shape), "TextBoxContent");
}

BodyText::Key keyAt(const Reference<css::beans::XPropertySet>& cursor) {
    if (const auto table = property<Reference<css::container::XNamed>>(cursor, "TextTable"); table.is()) {
        const auto cell = property<Reference<css::beans::XPropertySet>>(cursor, "Cell");
        return {table->getName(), property<OUString>(cell, "CellName"), OUString()};
    }
    const auto frame = property<Reference<css::container::XNamed>>(cursor, "TextFrame");
    return {OUString(), OUString(), frame.is() ? frame->getName() : OUString()};
}

} // namespace

class Body::Walk {
public:
    Walk(Body& body, const std::function<void(const Reference<css::beans::XPropertySet>&)>& onBlock)
        : mBody(body), mOnBlock(onBlock) {}

    // Reads a text. Every paragraph shares `unit`; when it is empty, each gets
    // a unit of its own.
    void walk(const BodyText::Key& key, const Reference<css::text::XText>& text, std::optional<size_t> unit) {
        const size_t index = mBody.mTexts.size();
        mBody.mTexts.push_back({key, text, {}});
        const Reference<css::container::XEnumerationAccess> access(text, UNO_QUERY_THROW);
        const auto blocks = access->createEnumeration();
        while (blocks->hasMoreElements()) {
            const Reference<css::uno::XInterface> block(blocks->nextElement(), UNO_QUERY);
            if (index == 0) {
                mOnBlock(propertiesOf(block));
            }
            try {
                walkBlock(block, index, unit);
            } catch (const css::uno::Exception&) {
                std::fprintf(stderr, "office: a part of the text cannot be read\n");
            }
        }
    }

    // Reads the texts in a shape and in the shapes of a group.
    void walkShape(const Reference<css::drawing::XShape>& shape,
                   const Reference<css::text::XTextRange>& anchor) {
        const Reference<css::drawing::XShapes> group(shape, UNO_QUERY);
        for (sal_Int32 i = 0; group.is() && i < group->getCount(); ++i) {
            walkShape({group->getByIndex(i), UNO_QUERY}, anchor);
        }
        if (const auto frame = frameOf(shape); frame.is()) {
            const Reference<css::container::XNamed> named(frame, UNO_QUERY_THROW);
            walk({OUString(), OUString(), named->getName()}, frame->getText(), std::nullopt);
        } else if (const Reference<css::text::XTextRange> text(shape, UNO_QUERY); !group.is() && text.is()) {
            attachLines(text->getString(), anchor);
        }
    }

private:
    using Kind = BodyParagraph::Kind;

    void walkBlock(const Reference<css::uno::XInterface>& block, size_t text, std::optional<size_t> unit) {
        if (const Reference<css::text::XTextTable> table(block, UNO_QUERY); table.is()) {
            cellsOf(table, unit);
        } else if (const Reference<css::text::XTextRange> range(block, UNO_QUERY); range.is()) {
            addParagraph(range, text, unit);
        }
    }

    void addParagraph(const Reference<css::text::XTextRange>& range, size_t text,
                      std::optional<size_t> unit) {
        const ShownParagraph shown = shownParagraph(range);
        std::u16string string;
        for (const ShownPiece& piece : shown.pieces) {
            string += piece.string;
        }
        const size_t own = unit ? *unit : mUnits++;
        add({range, std::move(string), shown.isPlain ? Kind::Plain : Kind::Mixed, 0, 0, text, own});
        for (const ShownPiece& piece : shown.pieces) {
            if (!piece.reading.empty()) {
                add({piece.range, piece.reading, Kind::Attached, 0, 0, text, own});
            }
        }
    }

    void attachLines(const OUString& text, const Reference<css::text::XTextRange>& anchor) {
        for (sal_Int32 at = 0; at >= 0;) {
            if (const OUString line = text.getToken(0, '\n', at); !line.isEmpty()) {
                add({anchor, toText(line), Kind::Attached, 0, 0, 0, mUnits++});
            }
        }
    }

    void add(BodyParagraph paragraph) { mBody.mParagraphs.push_back(std::move(paragraph)); }

    void cellsOf(const Reference<css::text::XTextTable>& table, std::optional<size_t> unit) {
        mBody.mHasTables = true;
        const Reference<css::container::XNamed> named(table, UNO_QUERY_THROW);
        const OUString tableName = named->getName();
        const auto names = table->getCellNames();
        std::map<OUString, size_t> cellsInRow;
        for (const OUString& name : names) {
            cellsInRow[rowOf(name)]++;
        }
        OUString row;
        size_t rowUnit = 0;
        for (const OUString& name : names) {
            if (const OUString rowOfCell = rowOf(name); rowOfCell != row) {
                row = rowOfCell;
                rowUnit = mUnits++;
            }
            const bool shares = !unit && cellsInRow[row] > 1;
            const Reference<css::text::XText> cell(table->getCellByName(name), UNO_QUERY_THROW);
            walk({tableName, name, OUString()}, cell, shares ? std::optional(rowUnit) : unit);
        }
    }

    Body& mBody;
    const std::function<void(const Reference<css::beans::XPropertySet>&)>& mOnBlock;
    size_t mUnits = 0;
};

Body::Body(const Reference<css::text::XTextDocument>& model, const std::vector<FloatingShape>& shapes,
           const std::function<void(const Reference<css::beans::XPropertySet>&)>& onBlock) {
    Walk walk(*this, onBlock);
    walk.walk({}, model->getText(), std::nullopt);
    std::vector<FrameBlock> frames;
    for (const FloatingShape& shape : shapes) {
        const Reference<css::text::XTextContent> content(shape.shape, UNO_QUERY);
        const auto anchor = content.is() ? content->getAnchor() : Reference<css::text::XTextRange>();
        const size_t first = mParagraphs.size();
        if (anchor.is()) {
            walk.walkShape(shape.shape, anchor);
        }
        if (mParagraphs.size() > first) {
            frames.push_back({first, mParagraphs.size(), anchor});
        }
    }
    for (size_t i = 0; i < mTexts.size(); ++i) {
        mTextOf.emplace(mTexts[i].key, i);
    }
    listParagraphs();
    if (!frames.empty()) {
        placeFrames(frames);
    }
    joinText();
}

void Body::listParagraphs() {
    for (BodyText& text : mTexts) {
        text.paragraphs.clear();
    }
    for (size_t i = 0; i < mParagraphs.size(); ++i) {
        if (mParagraphs[i].kind != BodyParagraph::Kind::Attached) {
            mTexts[mParagraphs[i].text].paragraphs.push_back(i);
        }
    }
}

const BodyParagraph* Body::hostOf(const FrameBlock& frame) const {
    const auto text = frame.anchor->getText();
    if (!text.is()) {
        return nullptr;
    }
    const auto cursor = text->createTextCursorByRange(frame.anchor->getStart());
    return paragraphAt(propertiesOf(cursor), Reference<css::text::XTextRange>(cursor, UNO_QUERY));
}

// Moves frames, which were read after the body, to their places: each follows
// the paragraph of its anchor, in the body or in another frame. Frames anchored
// elsewhere, such as in a note, are dropped.
void Body::placeFrames(const std::vector<FrameBlock>& frames) {
    std::multimap<size_t, const FrameBlock*> framesAt;
    for (const FrameBlock& frame : frames) {
        if (const BodyParagraph* const host = hostOf(frame); host != nullptr) {
            framesAt.emplace(static_cast<size_t>(host - mParagraphs.data()), &frame);
        }
    }
    std::vector<BodyParagraph> ordered;
    const std::function<void(size_t, size_t, std::optional<size_t>)> take = [&](size_t first, size_t last,
                                                                                std::optional<size_t> unit) {
        for (size_t i = first; i < last; ++i) {
            ordered.push_back(mParagraphs[i]);
            if (unit) {
                ordered.back().unit = *unit;
                ordered.back().isInFrame = true;
            }
            const size_t ownUnit = ordered.back().unit;
            const auto [begin, end] = framesAt.equal_range(i);
            for (auto frame = begin; frame != end; ++frame) {
                take(frame->second->first, frame->second->last, ownUnit);
            }
        }
    };
    take(0, frames.front().first, std::nullopt);
    mParagraphs = std::move(ordered);
    listParagraphs();
}

void Body::joinText() {
    for (BodyParagraph& paragraph : mParagraphs) {
        if (&paragraph != &mParagraphs.front()) {
            mString += PARAGRAPH_SEPARATOR;
        }
        paragraph.start = length();
        paragraph.length = static_cast<uint32_t>(paragraph.string.size());
        mString += std::exchange(paragraph.string, {});
    }
}

void Body::moveLastParagraph(const Reference<css::text::XTextRange>& range) {
    const std::vector<size_t>& own = mTexts.front().paragraphs;
    if (!own.empty()) {
        mParagraphs[own.back()].range = range;
    }
}

const BodyParagraph& Body::paragraphAt(uint32_t position) const {
    const auto next = std::upper_bound(
        mParagraphs.begin(), mParagraphs.end(), position,
        [](uint32_t character, const BodyParagraph& paragraph) { return character < paragraph.start; });
    return *std::prev(next);
}

CharacterRange Body::unitOf(const BodyParagraph& paragraph) const {
    const BodyParagraph* first = &paragraph;
    while (first != &mParagraphs.front() && std::prev(first)->unit == paragraph.unit) {
        --first;
    }
    const BodyParagraph* last = &paragraph;
    while (last != &mParagraphs.back() && std::next(last)->unit == paragraph.unit) {
        ++last;
    }
    return {first->start, last->start + last->length};
}

bool Body::isAlone(const BodyParagraph& paragraph) const {
    return unitOf(paragraph) == CharacterRange{paragraph.start, paragraph.start + paragraph.length};
}

const BodyParagraph* Body::paragraphAt(const Reference<css::beans::XPropertySet>& cursor,
                                       const Reference<css::text::XTextRange>& range) const {
    const auto found = mTextOf.find(keyAt(cursor));
    if (found == mTextOf.end() || mTexts[found->second].paragraphs.empty()) {
        return nullptr;
    }
    const BodyText& text = mTexts[found->second];
    const Reference<css::text::XTextRangeCompare> order(text.text, UNO_QUERY_THROW);
    const auto startsUpTo = [&](size_t index) {
        return order->compareRegionStarts(mParagraphs[index].range, range) >= 0;
    };
    try {
        const auto next = std::partition_point(text.paragraphs.begin(), text.paragraphs.end(), startsUpTo);
        return &mParagraphs[next == text.paragraphs.begin() ? *next : *std::prev(next)];
    } catch (const css::uno::Exception&) {
        // The suite does not compare this range with some, or any, of the paragraphs.
        return lastComparable(text, startsUpTo);
    }
}

const BodyParagraph* Body::lastComparable(const BodyText& text,
                                          const std::function<bool(size_t)>& startsUpTo) const {
    const BodyParagraph* last = nullptr;
    for (const size_t index : text.paragraphs) {
        try {
            if (!startsUpTo(index)) {
                break;
            }
            last = &mParagraphs[index];
        } catch (const css::uno::Exception&) {
            continue;
        }
    }
    return last;
}

} // namespace lectern::engine
