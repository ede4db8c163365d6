// SPDX-License-Identifier: Apache-2.0
#include "service/ModuleCalls.h"

#include "service/Registry.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

namespace {

TEST(StopModulesSoon, LoadsNoModule) {
    stopModulesSoon();
    EXPECT_EQ(dlopen("SheetToGoModule.so", RTLD_LAZY | RTLD_NOLOAD), nullptr);
}

TEST(StopModulesSoon, TellsLoadedModulesAndLeavesThemLoaded) {
    void* words = dlopen("WordToGoModule.so", RTLD_LAZY); // it has no stop function
    void* sheets = dlopen("SheetToGoModule.so", RTLD_LAZY);
    ASSERT_NE(words, nullptr) << dlerror();
    ASSERT_NE(sheets, nullptr) << dlerror();
    const auto stops = reinterpret_cast<int (*)()>(dlsym(sheets, "stop_count"));
    ASSERT_NE(stops, nullptr);
    EXPECT_EQ(stops(), 0);
    stopModulesSoon();
    EXPECT_EQ(stops(), 1);
    stopModulesSoon();
    EXPECT_EQ(stops(), 2);
    EXPECT_EQ(dlclose(sheets), 0);
    EXPECT_EQ(dlclose(words), 0);
}

TEST(PrepareModules, TellsModulesThatCanTheFolderOfOpens) {
    prepareModules();
    void* sheets = dlopen("SheetToGoModule.so", RTLD_LAZY | RTLD_NOLOAD);
    ASSERT_NE(sheets, nullptr) << "a module that prepares stays loaded";
    const auto folders = reinterpret_cast<const char* (*)()>(dlsym(sheets, "prepared_folders"));
    ASSERT_NE(folders, nullptr);
    EXPECT_STREQ(folders(), "/tmp;");
    EXPECT_EQ(dlclose(sheets), 0);
}

bool registryIsFree() {
    if (pthread_mutex_trylock(&gDocumentsMutex) != 0) {
        return false;
    }
    pthread_mutex_unlock(&gDocumentsMutex);
    return true;
}

TEST(PrepareModules, ModulesThatTellOfTheirWaitsFreeTheRegistryMeanwhile) {
    prepareModules();
    void* sheets = dlopen("SheetToGoModule.so", RTLD_LAZY | RTLD_NOLOAD);
    ASSERT_NE(sheets, nullptr);
    const auto wait = reinterpret_cast<void (*)(void (*)())>(dlsym(sheets, "wait_as_a_call_does"));
    ASSERT_NE(wait, nullptr);
    const RegistryLock lock;
    EXPECT_FALSE(registryIsFree());
    wait([] { EXPECT_TRUE(registryIsFree()); });
    EXPECT_FALSE(registryIsFree());
    EXPECT_EQ(dlclose(sheets), 0);
}

} // namespace
