// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Uno.h"

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <rtl/ref.hxx>

#include <memory>

namespace lectern::engine {

// Looks at each document that the suite has read, before it lays the document out. One
// whose layout would take minutes, although it is small, is emptied instead.
class LoadGuard {
public:
    // Watches as long as it lives.
    explicit LoadGuard(const css::uno::Reference<css::uno::XComponentContext>& context);
    ~LoadGuard();
    LoadGuard(const LoadGuard&) = delete;
    LoadGuard& operator=(const LoadGuard&) = delete;

    // Whether a document was emptied.
    bool hasRefused() const;

private:
    class Listener;
    css::uno::Reference<css::uno::XComponentContext> mContext;
    const rtl::Reference<Listener> mListener;
};

// Documents can ask the suite to load them again after a time, from an address of their
// own. It cannot, and with a time of 0 it tries without end.
void forgetReload(const css::uno::Reference<css::frame::XModel>& model);

} // namespace lectern::engine
