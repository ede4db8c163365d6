// SPDX-License-Identifier: Apache-2.0
#include "hub/Errors.h"

bool HubErrorInit(HubError* error) {
    if (error == nullptr) {
        return false;
    }
    *error = HubError{HUB_ERROR_NONE, nullptr};
    return true;
}

void HubErrorFree(HubError* error) {
    if (error == nullptr) {
        return;
    }
    g_free(error->message);
    HubErrorInit(error);
}

void HubErrorPrint(const HubError* error, FILE* stream) {
    if (error != nullptr && error->code != HUB_ERROR_NONE) {
        std::fprintf(stream, "%s (error %d)\n", error->message, error->code);
    }
}

namespace hub {

bool fail(HubError* error, int code, const std::string& message) {
    if (error != nullptr) {
        HubErrorFree(error);
        *error = HubError{code, g_strdup(message.c_str())};
    }
    return false;
}

bool failFromBus(HubError* error, const std::string& action, const GError* cause) {
    return fail(error, HUB_ERROR_BUS, action + ": " + cause->message);
}

} // namespace hub
