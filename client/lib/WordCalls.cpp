// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Calls.h"
#include <lectern/WordCalls.h>

namespace lectern::word {

Call<void> wideMode(bool on) {
    return command("/word", "wideMode", JsonMembers().add("wideMode", on));
}

} // namespace lectern::word
