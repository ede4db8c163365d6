// SPDX-License-Identifier: Apache-2.0
// The AddressSanitizer options of every program that runs the service's worker.
//
// Cancelling a thread unwinds its stack without function returns, so the sanitizer
// does not notice that the frames are gone. When it later cleans up its alternate
// signal stack, it reports its own write as one to a dead frame. The option turns
// the alternate signal stack off.
extern "C" __attribute__((visibility("default"))) const char*
__asan_default_options(); // NOLINT(bugprone-reserved-identifier)

const char* __asan_default_options() { // NOLINT(bugprone-reserved-identifier)
    return "use_sigaltstack=0";
}
