// SPDX-License-Identifier: Apache-2.0
#include "engine/process/SystemCallFilter.h"

#include <seccomp.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <set>

namespace lectern::engine {
namespace {

using Filter = std::unique_ptr<void, decltype(&seccomp_release)>;

// Calls from this number on have the same number on all processors, and the C library
// knows that the kernel may lack them. So here they do not exist unless they are allowed,
// nor do those that later kernels have.
constexpr int FIRST_RECENT = 424;
constexpr int LAST_RECENT = 600;

std::uint32_t refusalOf(int call) {
    return SCMP_ACT_ERRNO(call >= FIRST_RECENT ? ENOSYS : EPERM);
}

// libseccomp's own macros for this do not compile as C++.
scmp_arg_cmp toSeccomp(const Condition& condition) {
    return condition.equal
               ? scmp_arg_cmp{condition.argument, SCMP_CMP_MASKED_EQ, condition.mask, condition.value}
               : scmp_arg_cmp{condition.argument, SCMP_CMP_NE, condition.value, 0};
}

bool addRule(void* filter, std::uint32_t action, int call, const std::vector<Condition>& conditions = {}) {
    std::vector<scmp_arg_cmp> all(conditions.size());
    std::transform(conditions.begin(), conditions.end(), all.begin(), toSeccomp);
    return seccomp_rule_add_array(filter, action, call, static_cast<unsigned>(all.size()), all.data()) == 0;
}

bool addAllowed(void* filter, const std::vector<SystemCall>& calls) {
    std::set<int> allowed;
    for (const SystemCall& entry : calls) {
        const int call = seccomp_syscall_resolve_name(entry.name);
        if (call != __NR_SCMP_ERROR && !addRule(filter, SCMP_ACT_ALLOW, call, entry.conditions)) {
            return false;
        }
        allowed.insert(call);
    }
    for (int call = FIRST_RECENT; call <= LAST_RECENT; call++) {
        if (allowed.count(call) == 0 && !addRule(filter, refusalOf(call), call)) {
            return false;
        }
    }
    return true;
}

bool addRefused(void* filter, const std::vector<SystemCall>& calls) {
    return std::all_of(calls.begin(), calls.end(), [filter](const SystemCall& entry) {
        const int call = seccomp_syscall_resolve_name(entry.name);
        return call == __NR_SCMP_ERROR || addRule(filter, refusalOf(call), call, entry.conditions);
    });
}

using AddRules = bool (*)(void* filter, const std::vector<SystemCall>& calls);

bool load(std::uint32_t otherwise, AddRules addRules, const std::vector<SystemCall>& calls) {
    const Filter filter(seccomp_init(otherwise), &seccomp_release);
    const bool loaded = filter &&
                        // Calls in the way of another processor, such as a 32-bit one.
                        seccomp_attr_set(filter.get(), SCMP_FLTATR_ACT_BADARCH, SCMP_ACT_ERRNO(EPERM)) == 0 &&
                        // A search in a tree instead of a list.
                        seccomp_attr_set(filter.get(), SCMP_FLTATR_CTL_OPTIMIZE, 2) == 0 &&
                        seccomp_attr_set(filter.get(), SCMP_FLTATR_CTL_NNP, 0) == 0 &&
                        addRules(filter.get(), calls) && seccomp_load(filter.get()) == 0;
    if (!loaded) {
        std::fprintf(stderr, "engine: the system call filter cannot be loaded\n");
    }
    return loaded;
}

} // namespace

bool allowOnly(const std::vector<SystemCall>& calls) {
    return load(SCMP_ACT_ERRNO(EPERM), &addAllowed, calls);
}

bool refuse(const std::vector<SystemCall>& calls) {
    return load(SCMP_ACT_ALLOW, &addRefused, calls);
}

} // namespace lectern::engine
