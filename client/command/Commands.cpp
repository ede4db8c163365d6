// SPDX-License-Identifier: Apache-2.0
#include "client/command/Commands.h"

#include <cstdio>

namespace lectern {

int report(const Error& error) {
    if (error.kind != Error::Kind::Cancelled) {
        std::fprintf(stderr, "lectern: %s\n", error.text.c_str());
    }
    return error.kind == Error::Kind::Argument ? STATUS_MISUSE : STATUS_FAILED;
}

} // namespace lectern
