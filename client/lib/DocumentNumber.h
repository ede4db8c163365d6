// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Document.h>

namespace lectern {

// The service's number of a document: for tests, which also speak to the service
// directly. A reopen may change it.
class DocumentNumber {
public:
    static int of(const Document& document);
};

} // namespace lectern
