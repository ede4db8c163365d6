// SPDX-License-Identifier: Apache-2.0
#include "engine/office/Uno.h"

#include <com/sun/star/awt/Toolkit.hpp>
#include <com/sun/star/awt/XReschedule.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <dlfcn.h>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;

void* suiteFunction(const char* symbol) {
    void* library = dlopen(LECTERN_OFFICE_PROGRAM "/libmergedlo.so", RTLD_NOW | RTLD_NOLOAD);
    if (library == nullptr) {
        return nullptr;
    }
    void* function = dlsym(library, symbol);
    dlclose(library);
    return function;
}

Reference<css::uno::XComponentContext> processContext() {
    // comphelper::getProcessComponentContext(), the only way to reach the components
    // of a suite that was started as a library.
    using ContextGetter = Reference<css::uno::XComponentContext> (*)();
    const auto getter =
        reinterpret_cast<ContextGetter>(suiteFunction("_ZN10comphelper26getProcessComponentContextEv"));
    return getter != nullptr ? getter() : Reference<css::uno::XComponentContext>();
}

void handleSuiteEvents() {
    static const Reference<css::awt::XReschedule> toolkit(css::awt::Toolkit::create(processContext()),
                                                          UNO_QUERY);
    toolkit->reschedule();
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

OUString toUnoText(const std::string& text) {
    return OStringToOUString(rtl::OString(text.data(), static_cast<sal_Int32>(text.size())),
                             RTL_TEXTENCODING_UTF8);
}

OUString implementationName(const Reference<css::uno::XInterface>& object) {
    const Reference<css::lang::XServiceInfo> info(object, UNO_QUERY);
    return info.is() ? info->getImplementationName() : OUString();
}

} // namespace lectern::engine
