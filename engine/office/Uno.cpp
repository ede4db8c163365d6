// SPDX-License-Identifier: Apache-2.0
#include "engine/office/Uno.h"

#include <com/sun/star/lang/XServiceInfo.hpp>
#include <dlfcn.h>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;

Reference<css::uno::XComponentContext> processContext() {
    // comphelper::getProcessComponentContext(). No header declares it, but it is the
    // only way to reach the components of a suite that was started as a library.
    using ContextGetter = Reference<css::uno::XComponentContext> (*)();
    void* library = dlopen(LECTERN_OFFICE_PROGRAM "/libmergedlo.so", RTLD_NOW | RTLD_NOLOAD);
    if (library == nullptr) {
        return {};
    }
    const auto getter =
        reinterpret_cast<ContextGetter>(dlsym(library, "_ZN10comphelper26getProcessComponentContextEv"));
    dlclose(library);
    return getter != nullptr ? getter() : Reference<css::uno::XComponentContext>();
}

Reference<css::beans::XPropertySet> propertiesOf(const Reference<css::uno::XInterface>& object) {
    return {object, UNO_QUERY};
}

bool setAnyProperty(const Reference<css::beans::XPropertySet>& properties, const char* name,
                    const css::uno::Any& value) noexcept {
    try {
        if (!properties.is()) {
            return false;
        }
        properties->setPropertyValue(OUString::createFromAscii(name), value);
        return true;
    } catch (const css::uno::Exception&) {
        return false;
    }
}

css::uno::Any anyProperty(const Reference<css::beans::XPropertySet>& properties, const char* name) noexcept {
    try {
        if (properties.is()) {
            return properties->getPropertyValue(OUString::createFromAscii(name));
        }
    } catch (const css::uno::Exception&) {
        return {};
    }
    return {};
}

std::u16string toText(const OUString& text) {
    return {text.getStr(), text.getStr() + text.getLength()};
}

OUString implementationName(const Reference<css::uno::XInterface>& object) {
    const Reference<css::lang::XServiceInfo> info(object, UNO_QUERY);
    return info.is() ? info->getImplementationName() : OUString();
}

} // namespace lectern::engine
