// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/SecondaryDocument.h"

#include "engine/office/word/Preparation.h"
#include "modules/ModuleResults.h"

#include <com/sun/star/datatransfer/XTransferableSupplier.hpp>
#include <com/sun/star/frame/XFrame.hpp>
#include <com/sun/star/text/XFootnote.hpp>
#include <com/sun/star/text/XTextViewCursorSupplier.hpp>
#include <com/sun/star/util/DateTime.hpp>

#include <algorithm>
#include <cstdio>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

// Copies a text with its formatting, by copy and paste.
void copyText(const Reference<css::text::XText>& text, const OpenedDocument& from,
              const OpenedDocument& into) {
    const Reference<css::text::XTextViewCursorSupplier> view(from.model->getCurrentController(),
                                                             UNO_QUERY_THROW);
    const auto selection = text->createTextCursor();
    selection->gotoStart(false);
    selection->gotoEnd(true);
    view->getViewCursor()->gotoRange(Reference<css::text::XTextRange>(selection, UNO_QUERY), false);
    const Reference<css::datatransfer::XTransferableSupplier> source(view, UNO_QUERY_THROW);
    const Reference<css::datatransfer::XTransferableSupplier> target(into.model->getCurrentController(),
                                                                     UNO_QUERY_THROW);
    target->insertTransferable(source->getTransferable());
    view->getViewCursor()->collapseToStart();
}

// Makes a document active again on destruction. Opening a document makes it
// active, and closing it activates no other. The suite reports selections for
// the active document only.
class Reactivation {
public:
    explicit Reactivation(const OpenedDocument& document) : mDocument(document) {}
    ~Reactivation() {
        try {
            // Its frame may not know that it is inactive, and then activate() does nothing.
            const Reference<css::frame::XFrame> frame = mDocument.model->getCurrentController()->getFrame();
            frame->deactivate();
            frame->activate();
        } catch (const css::uno::Exception&) {
            std::fprintf(stderr, "office: the document stays inactive\n");
        }
    }
    Reactivation(const Reactivation&) = delete;
    Reactivation& operator=(const Reactivation&) = delete;

private:
    const OpenedDocument& mDocument;
};

void writeNote(const SideText& note, const OpenedDocument& from, const OpenedDocument& into) {
    const Reference<css::text::XFootnote> footnote(note.object, UNO_QUERY_THROW);
    const Reference<css::text::XText> text(note.object, UNO_QUERY_THROW);
    if (!text->getString().isEmpty()) {
        copyText(text, from, into);
    }
    const auto body = into.model->getText();
    if (body->getString().isEmpty() && !text->getString().isEmpty()) {
        body->setString(text->getString());
    }
    const OUString mark = footnote->getAnchor()->getString();
    body->insertString(body->getStart(), mark + " ", false);
}

void writeComment(const SideText& comment, const OpenedDocument& into) {
    const auto properties = propertiesOf(comment.object);
    OUString head = property<OUString>(properties, "Author");
    if (const auto date = property<css::util::DateTime>(properties, "DateTimeValue"); date.Year != 0) {
        char written[32];
        std::snprintf(written, sizeof written, "%04d-%02d-%02d", date.Year, date.Month, date.Day);
        head += (head.isEmpty() ? OUString() : OUString(", ")) + OUString::createFromAscii(written);
    }
    const auto content = property<OUString>(properties, "Content");
    into.model->getText()->setString(head.isEmpty() ? content : head + "\n" + content);
}

// Resolutions for a text that is too long for its surface, in percent: smaller
// letters show more of it, but below the last they cannot be read.
constexpr int32_t RESOLUTIONS[] = {100, 85, 70, 60};

// Lays a text out in the largest letters that show all of it, or in the smallest.
RowMap layOutToFit(TextFlow& flow, const Surface& surface, int32_t dpi) {
    RowMap map;
    for (const int32_t percent : RESOLUTIONS) {
        const int32_t reduced = std::max(dpi * percent / 100, 1);
        flow.layOut(layoutWidth(surface.width, reduced));
        map = RowMap(flow.pages(), reduced);
        if (map.rows() <= surface.height) {
            break;
        }
    }
    return map;
}

} // namespace

int32_t paintSideText(Office::Private& office, const OpenedDocument& from, const SideText& text,
                      const Surface& surface, int32_t dpi) {
    const Reactivation reactivation(from);
    OpenedDocument side; // destroyed before the other one is reactivated
    if (const int32_t result = newDocument(office, side); result != MODULE_OK) {
        return result;
    }
    // Pasting needs a current layout.
    side.model->unlockControllers();
    if (text.type == ClickType::Comment) {
        writeComment(text, side);
    } else {
        writeNote(text, from, side);
    }
    side.model->lockControllers();
    PreparedDocument prepared = prepareForReflow(side.model);
    TextFlow flow(side, prepared);
    const RowMap map = layOutToFit(flow, surface, dpi);
    TilePainter(*side.painter).paint(map, 0, surface, 0, surface.height);
    return MODULE_OK;
}

} // namespace lectern::engine
