// SPDX-License-Identifier: Apache-2.0
#include "service/DocumentMethod.h"

bool readParameters(BusCall& call, std::initializer_list<IntParameter> parameters, const char* missingText) {
    for (const IntParameter& parameter : parameters) {
        if (!json_get_int(call.payload(), parameter.key, parameter.value)) {
            call.replyError(kParamFailed, missingText);
            return false;
        }
    }
    return true;
}
