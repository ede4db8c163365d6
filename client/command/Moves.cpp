// SPDX-License-Identifier: Apache-2.0
#include "client/command/Moves.h"

#include <lectern/CommonCalls.h>
#include <lectern/ExcelCalls.h>
#include <lectern/ListReply.h>
#include <lectern/Navigation.h>
#include <lectern/PptCalls.h>
#include <lectern/TouchCalls.h>

namespace lectern {

namespace {

Error misuse(std::string text) {
    return {Error::Kind::Argument, std::move(text), 0, {}};
}

const char* plural(DocumentKind kind) {
    switch (kind) {
    case DocumentKind::Spreadsheet:
        return "spreadsheets";
    case DocumentKind::WordProcessing:
        return "word-processing documents";
    case DocumentKind::Presentation:
        return "presentations";
    default:
        return "documents of another kind";
    }
}

// `what` is "sheet" or "slide".
Failure checkNumber(const char* what, int number, int count) {
    if (number >= 1 && number <= count) {
        return std::nullopt;
    }
    const std::string wanted = std::string("there is no ") + what + " " + std::to_string(number);
    if (count == 0) {
        return misuse(wanted + "; the document has none");
    }
    return misuse(
        wanted + "; " +
        (count == 1 ? "the document has only one" : "use a number from 1 to " + std::to_string(count)));
}

// Modules can be without what a search with touch manners needs.
bool isUnsupported(const Error& error) {
    return error.kind == Error::Kind::Refused && error.name == "errNotSupported";
}

bool isNothingThere(const Error& error) {
    return error.kind == Error::Kind::Refused && error.name == "errNothingThere";
}

using TouchStep = Call<touch::Hit> (*)();
using ClassicStep = Call<void> (*)();

Failure step(Document& document, TouchStep touchStep, ClassicStep classicStep, const CallLimits& limits) {
    if (document.manners() == Manners::Touch) {
        const Result<touch::Hit> hit = document.ask(touchStep(), limits);
        if (hit || isNothingThere(hit.error())) {
            return std::nullopt;
        }
        if (!isUnsupported(hit.error())) {
            return hit.error();
        }
    }
    return document.ask(classicStep(), limits);
}

} // namespace

Result<std::optional<int>> goToFirstHit(Document& document, const std::string& text,
                                        const CallLimits& limits) {
    if (document.manners() == Manners::Touch) {
        const Result<touch::Hit> hit = document.ask(touch::search(text), limits);
        if (hit || isNothingThere(hit.error())) {
            return std::optional(hit ? hit->hits : 0);
        }
        if (!isUnsupported(hit.error())) {
            return hit.error();
        }
    }
    const Result<int> hits = document.ask(common::search(text), limits);
    if (!hits) {
        return hits.error();
    }
    return document.kind() == DocumentKind::Presentation ? std::nullopt : std::optional(*hits);
}

Failure goToNextHit(Document& document, const CallLimits& limits) {
    return step(document, touch::nextResult, common::nextResult, limits);
}

Failure goToPreviousHit(Document& document, const CallLimits& limits) {
    return step(document, touch::previousResult, common::previousResult, limits);
}

Failure requireKind(const Document& document, DocumentKind kind, const char* what) {
    if (document.kind() == kind) {
        return std::nullopt;
    }
    return misuse(std::string(what) + " works with " + plural(kind) + " only");
}

Failure goToSheet(Document& document, int number, const CallLimits& limits) {
    const Result<std::string> list = document.ask(excel::getSheetList(), limits);
    if (!list) {
        return list.error();
    }
    const Failure failure = checkNumber("sheet", number, readPartList(*list).count);
    return failure ? failure : showSheet(document, number - 1, limits);
}

Failure goToSlide(Document& document, int number, const CallLimits& limits) {
    const Result<int> count = document.ask(ppt::getSlideCount(), limits);
    if (!count) {
        return count.error();
    }
    const Failure failure = checkNumber("slide", number, *count);
    return failure ? failure : showSlide(document, number - 1, limits);
}

} // namespace lectern
