// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/uno/Reference.hxx>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <rtl/ustring.hxx>

#include <string>

namespace lectern::engine {

namespace css = com::sun::star;
using rtl::OUString;

// The component context of the suite that runs in this process; null when the
// suite does not export it.
css::uno::Reference<css::uno::XComponentContext> processContext();

// Lets the suite handle its waiting events, such as the report of a selection.
void handleSuiteEvents();

// A function of the suite that no header declares, by its symbol; null when the suite
// does not export it.
void* suiteFunction(const char* symbol);

// The object's property set. Query it once when several properties are read or written.
css::uno::Reference<css::beans::XPropertySet>
propertiesOf(const css::uno::Reference<css::uno::XInterface>& object);

// Objects in documents may lack a property or refuse a value. These functions
// do not fail then: they return false or the fallback.
bool setAnyProperty(const css::uno::Reference<css::beans::XPropertySet>& properties, const char* name,
                    const css::uno::Any& value) noexcept;
css::uno::Any anyProperty(const css::uno::Reference<css::beans::XPropertySet>& properties,
                          const char* name) noexcept;

template<class T>
bool setProperty(const css::uno::Reference<css::beans::XPropertySet>& properties, const char* name,
                 const T& value) noexcept {
    return setAnyProperty(properties, name, css::uno::Any(value));
}

template<class T>
T property(const css::uno::Reference<css::beans::XPropertySet>& properties, const char* name,
           T fallback = T()) noexcept {
    anyProperty(properties, name) >>= fallback;
    return fallback;
}

std::u16string toText(const OUString& text);
// From UTF-8.
OUString toUnoText(const std::string& text);

// The name of the object's class; empty when the object does not report one.
OUString implementationName(const css::uno::Reference<css::uno::XInterface>& object);

// The suite measures positions and sizes in twips, its
// component interfaces in 1/100 mm. Both are rounded, in 64 bits: heights here
// come near the end of 32.
inline int64_t twipsFromHundredthMm(int64_t length) {
    const int64_t half = length < 0 ? -63 : 63;
    return (length * 72 + half) / 127;
}
inline int64_t hundredthMmFromTwips(int64_t length) {
    const int64_t half = length < 0 ? -36 : 36;
    return (length * 127 + half) / 72;
}

} // namespace lectern::engine
