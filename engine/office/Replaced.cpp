// SPDX-License-Identifier: Apache-2.0
// Functions that take the place of the C library's in this program and in all libraries
// that it loads.
#include <dlfcn.h>
#include <rtl/ustring.hxx>
#include <unistd.h>

#define REPLACES extern "C" __attribute__((visibility("default")))

// An engine writes temporary files only, which nobody needs after a crash of the
// machine. The suite nevertheless asks the system to bring some of them to the disk,
// which takes 5 to 150 ms each time.
REPLACES int fsync(int) {
    return 0;
}

// The suite asks at each load in which library one of its functions is. The search
// through the symbols of that library takes 6 ms, so the last answer is kept.
REPLACES int dladdr(const void* address, Dl_info* info) noexcept {
    thread_local const void* lastAddress = nullptr;
    thread_local Dl_info lastInfo;
    thread_local int lastResult = 0;
    if (lastAddress == nullptr || address != lastAddress) {
        lastResult = dladdr1(address, &lastInfo, nullptr, 0);
        lastAddress = address;
    }
    *info = lastInfo;
    return lastResult;
}

// LanguageTag::isValidBcp47, with which the suite asks at each load whether the language
// of the load's options is valid. For the answer a library reads a list of all languages,
// which takes 24 ms and 17 MiB. The options have no language, or American English.
bool isValidLanguage(const rtl::OUString& tag, rtl::OUString* canonical,
                     bool allowsPrivate) __asm__("_ZN11LanguageTag12isValidBcp47ERKN3rtl8OUStringEPS1_b");

__attribute__((visibility("default"))) bool isValidLanguage(const rtl::OUString& tag,
                                                            rtl::OUString* canonical, bool allowsPrivate) {
    if (canonical == nullptr && (tag.isEmpty() || tag == "en-US")) {
        return !tag.isEmpty();
    }
    static const auto original = reinterpret_cast<decltype(&isValidLanguage)>(
        dlsym(dlopen(LECTERN_OFFICE_PROGRAM "/libi18nlangtag.so", RTLD_LAZY | RTLD_NOLOAD),
              "_ZN11LanguageTag12isValidBcp47ERKN3rtl8OUStringEPS1_b"));
    return original != nullptr && original(tag, canonical, allowsPrivate);
}
