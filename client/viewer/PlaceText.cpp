// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/PlaceText.h"

#include "base/GLibHolder.h"

#include <glib/gi18n.h>

#include <algorithm>
#include <cmath>

namespace lectern::viewer {

namespace {

template<typename... Values>
std::string formatted(const char* format, Values... values) {
    return GLibHolder<char>(g_strdup_printf(format, values...)).get();
}

int percentRead(const ShownPlace& place) {
    const double way = static_cast<double>(place.documentHeight) - place.height;
    return way < 1 ? 100 : static_cast<int>(std::round(std::clamp(place.y / way, 0.0, 1.0) * 100));
}

} // namespace

std::string placeText(const ShownPlace& place) {
    switch (place.kind) {
    case LECTERN_DOCUMENT_KIND_PRESENTATION:
        // Translators: the number of the slide, and how many there are.
        return formatted(_("Slide %d of %d"), place.part + 1, place.parts);
    case LECTERN_DOCUMENT_KIND_SPREADSHEET:
        return place.sheet.empty() ? formatted(_("Sheet %d of %d"), place.part + 1, place.parts)
                                   : formatted(_("Sheet %s"), place.sheet.c_str());
    default:
        // Translators: how much of a text has been read.
        return formatted(_("%d%%"), percentRead(place));
    }
}

std::string slideTitle(int slide, const std::string& title) {
    // Translators: the number and the title of a slide.
    return title.empty() ? formatted(_("Slide %d"), slide + 1)
                         : formatted(_("%d. %s"), slide + 1, title.c_str());
}

std::string notesHeading(int slide) {
    return formatted(_("Notes of Slide %d"), slide + 1);
}

std::string commentHeading(const std::string& address) {
    // Translators: the name of a cell, such as B7.
    return formatted(_("Comment on %s"), address.c_str());
}

std::string hitText(int hit, int hits) {
    if (hits < 1) {
        return _("No results");
    }
    if (hit < 0) {
        return formatted(ngettext("%d result", "%d results", static_cast<unsigned long>(hits)), hits);
    }
    // Translators: the number of the search result, and how many there are.
    return formatted(_("%d of %d"), hit + 1, hits);
}

} // namespace lectern::viewer
