// SPDX-License-Identifier: Apache-2.0
#include "engine/office/Properties.h"

#include <com/sun/star/document/XDocumentProperties.hpp>
#include <com/sun/star/document/XDocumentPropertiesSupplier.hpp>

#include <ctime>

namespace lectern::engine {

using css::uno::Reference;

namespace {

// Seconds since 1970 in UTC, 0 when unset.
int64_t toUnixTime(const css::util::DateTime& time) {
    if (time.Year == 0 || time.Month == 0 || time.Day == 0) {
        return 0;
    }
    std::tm calendar{};
    calendar.tm_year = time.Year - 1900;
    calendar.tm_mon = time.Month - 1;
    calendar.tm_mday = time.Day;
    calendar.tm_hour = time.Hours;
    calendar.tm_min = time.Minutes;
    calendar.tm_sec = time.Seconds;
    // Files store UTC and the suite passes it on unchanged, although it leaves
    // IsUTC unset.
    return timegm(&calendar);
}

} // namespace

DocumentInformation informationOf(const Reference<css::uno::XInterface>& model) {
    const Reference<css::document::XDocumentPropertiesSupplier> supplier(model, css::uno::UNO_QUERY_THROW);
    const auto properties = supplier->getDocumentProperties();
    return {toText(properties->getTitle()), toText(properties->getAuthor()),
            toText(properties->getDescription()), toUnixTime(properties->getCreationDate()),
            toUnixTime(properties->getModificationDate())};
}

} // namespace lectern::engine
