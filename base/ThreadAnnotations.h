// SPDX-License-Identifier: Apache-2.0
// Which lock guards which field, in a form that clang checks (-Wthread-safety;
// scripts/check-locks runs it over the sources). Other compilers see nothing.
#pragma once

#ifdef __clang__
#define LECTERN_THREAD_ATTRIBUTE(attribute) __attribute__((attribute))
#else
#define LECTERN_THREAD_ATTRIBUTE(attribute)
#endif

// A class whose objects can be held, and a class that holds one for its life.
#define CAPABILITY(name) LECTERN_THREAD_ATTRIBUTE(capability(name))
#define SCOPED_CAPABILITY LECTERN_THREAD_ATTRIBUTE(scoped_lockable)

// A field that may be read and written only while the lock is held.
#define GUARDED_BY(lock) LECTERN_THREAD_ATTRIBUTE(guarded_by(lock))

// Functions: the caller holds the lock; the caller must not hold it; the function
// takes it; the function releases it.
#define REQUIRES(...) LECTERN_THREAD_ATTRIBUTE(requires_capability(__VA_ARGS__))
#define EXCLUDES(...) LECTERN_THREAD_ATTRIBUTE(locks_excluded(__VA_ARGS__))
#define ACQUIRE(...) LECTERN_THREAD_ATTRIBUTE(acquire_capability(__VA_ARGS__))
#define RELEASE(...) LECTERN_THREAD_ATTRIBUTE(release_capability(__VA_ARGS__))

// A function that the analysis cannot follow. Say why beside each use.
#define NO_THREAD_SAFETY_ANALYSIS LECTERN_THREAD_ATTRIBUTE(no_thread_safety_analysis)
