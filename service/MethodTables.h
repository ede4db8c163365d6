// SPDX-License-Identifier: Apache-2.0
// The method tables of the six categories. Each ends with an all-zero entry.
#pragma once

#include "hub/hubservice.h"

extern const HubMethod commonMethods[];
extern const HubMethod eventMethods[];
extern const HubMethod wordMethods[];
extern const HubMethod excelMethods[];
extern const HubMethod pptMethods[];
extern const HubMethod touchMethods[];
