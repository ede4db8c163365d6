// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "service/DocumentMethod.h"
#include "touch/TouchView.h"

template<>
inline constexpr const char* WRONG_KIND<TouchView> = "Not a touch view";
