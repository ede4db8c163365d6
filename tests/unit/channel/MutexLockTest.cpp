// SPDX-License-Identifier: Apache-2.0
#include "channel/DocAdapterCommon.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pthread.h>

#include <cerrno>

namespace {

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

TEST(MutexLock, HoldsUntilItsEnd) {
    pthread_mutex_t mutex = PTHREAD_MUTEX_INITIALIZER;
    {
        MutexLock lock;
        EXPECT_EQ(lock.lock(&mutex), 0);
        EXPECT_EQ(pthread_mutex_trylock(&mutex), EBUSY);
    }
    EXPECT_EQ(pthread_mutex_trylock(&mutex), 0);
    pthread_mutex_unlock(&mutex);
}

TEST(MutexLock, UnlocksNothingWhenItHasLockedNothing) {
    const MutexLock lock;
}

TEST(MutexLock, SaysWhyItCannotLockAndDoesNotUnlock) {
    pthread_mutex_t mutex = PTHREAD_ERRORCHECK_MUTEX_INITIALIZER_NP;
    ASSERT_EQ(pthread_mutex_lock(&mutex), 0);
    CaptureStderr();
    {
        MutexLock lock;
        EXPECT_EQ(lock.lock(&mutex), EDEADLK);
    }
    EXPECT_EQ(GetCapturedStderr(), "Unable to acquire mutex: 35.");
    EXPECT_EQ(pthread_mutex_unlock(&mutex), 0) << "the guard must not have let go of it";
}

TEST(MutexLockDeathTest, RequiresAMutex) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(
        {
            MutexLock lock;
            lock.lock(nullptr);
        },
        testing::HasSubstr("`mutex != __null'"));
}

} // namespace
