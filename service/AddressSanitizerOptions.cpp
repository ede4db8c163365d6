// SPDX-License-Identifier: Apache-2.0
// What every program that runs the service's worker asks of AddressSanitizer.
//
// A cancelled thread leaves its stack without the returns by which the sanitizer
// would notice that the frames are gone. It then takes its own clean-up, that of
// the alternate signal stack, for a write to a dead frame: so it gets none.
extern "C" __attribute__((visibility("default"))) const char*
__asan_default_options(); // NOLINT(bugprone-reserved-identifier)

const char* __asan_default_options() { // NOLINT(bugprone-reserved-identifier)
    return "use_sigaltstack=0";
}
