// SPDX-License-Identifier: Apache-2.0
// Filling the tables from complete modules that the loader finds by bare name.
#include "FunctionNames.h"
#include "modules/SSTGFunc.h"
#include "modules/STGFunc.h"
#include "modules/Singleton.h"
#include "modules/WTGFunc.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string>
#include <type_traits>
#include <vector>

namespace {

struct Word {
    using Table = WTGFunc;
    static constexpr const char* FILE = "WordToGoModule.so";
    static std::vector<std::string> names() { return {std::begin(WORD_FUNCTIONS), std::end(WORD_FUNCTIONS)}; }
    static constexpr auto STOP_FIND = &WTGFunc::wtg_stop_find;
};

struct Sheet {
    using Table = STGFunc;
    static constexpr const char* FILE = "SheetToGoModule.so";
    static std::vector<std::string> names() {
        return {std::begin(SHEET_FUNCTIONS), std::end(SHEET_FUNCTIONS)};
    }
    static constexpr auto STOP_FIND = &STGFunc::stg_stop_find;
};

struct Slides {
    using Table = SSTGFunc;
    static constexpr const char* FILE = "SlideshowToGoModule.so";
    static std::vector<std::string> names() {
        return {std::begin(SLIDE_FUNCTIONS), std::end(SLIDE_FUNCTIONS)};
    }
    static constexpr auto STOP_FIND = &SSTGFunc::sstg_stop_find;
};

// The table's members in memory order.
template<typename Table>
std::vector<void*> addresses(const Table& table) {
    std::vector<void*> members(sizeof(Table) / sizeof(void*));
    std::memcpy(members.data(), &table, sizeof(Table));
    return members;
}

std::string nameOf(void* address) {
    Dl_info info{};
    return dladdr(address, &info) != 0 && info.dli_sname != nullptr ? info.dli_sname : "";
}

bool isLoaded(const char* file) {
    void* handle = dlopen(file, RTLD_LAZY | RTLD_NOLOAD);
    if (handle == nullptr) {
        return false;
    }
    dlclose(handle);
    return true;
}

template<typename Kind>
class FunctionTable : public testing::Test {};
using Kinds = testing::Types<Word, Sheet, Slides>;
TYPED_TEST_SUITE(FunctionTable, Kinds);

TYPED_TEST(FunctionTable, IsAPlainRecordOfOnePointerForEachFunction) {
    using Table = typename TypeParam::Table;
    static_assert(std::is_standard_layout_v<Table> && std::is_trivially_destructible_v<Table>);
    EXPECT_EQ(sizeof(Table), TypeParam::names().size() * sizeof(void*));
}

TYPED_TEST(FunctionTable, StartsOutNull) {
    // On memory that is not zero, so that nulls must have been written.
    alignas(typename TypeParam::Table) unsigned char memory[sizeof(typename TypeParam::Table)];
    std::memset(memory, 0xA5, sizeof memory);
    const auto* table = new (memory) typename TypeParam::Table();
    const std::vector<void*> members = addresses(*table);
    EXPECT_EQ(std::count(members.begin(), members.end(), nullptr), static_cast<ptrdiff_t>(members.size()));
}

TYPED_TEST(FunctionTable, HoldsInEachMemberTheFunctionOfItsPlace) {
    typename TypeParam::Table table;
    void* handle = table.SetFunctionPointers();
    ASSERT_NE(handle, nullptr);
    std::vector<std::string> found;
    for (void* address : addresses(table)) {
        found.push_back(nameOf(address));
    }
    EXPECT_EQ(found, TypeParam::names());
    dlclose(handle);
}

TYPED_TEST(FunctionTable, KeepsItsModulesNamesToItself) {
    typename TypeParam::Table table;
    void* handle = table.SetFunctionPointers();
    EXPECT_EQ(dlsym(RTLD_DEFAULT, TypeParam::names()[0].c_str()), nullptr) << "other modules would see it";
    dlerror();
    dlclose(handle);
}

TYPED_TEST(FunctionTable, FilledAgainKeepsItsAddressesAndTakesASecondReference) {
    auto& table = Singleton<typename TypeParam::Table>::Instance();
    ASSERT_FALSE(isLoaded(TypeParam::FILE));
    void* first = table.SetFunctionPointers();
    const std::vector<void*> before = addresses(table);
    void* second = table.SetFunctionPointers();
    EXPECT_EQ(second, first);
    EXPECT_EQ(addresses(table), before);

    dlclose(first);
    EXPECT_TRUE(isLoaded(TypeParam::FILE));
    EXPECT_EQ((table.*TypeParam::STOP_FIND)(nullptr), 0);
    dlclose(second);
    EXPECT_FALSE(isLoaded(TypeParam::FILE));
    EXPECT_EQ(addresses(table), before); // outdated, but never reset
}

TYPED_TEST(FunctionTable, IsUsableAgainAfterItsModuleWasUnloaded) {
    auto& table = Singleton<typename TypeParam::Table>::Instance();
    dlclose(table.SetFunctionPointers());
    void* handle = table.SetFunctionPointers();
    EXPECT_EQ((table.*TypeParam::STOP_FIND)(&table), 1);
    dlclose(handle);
}

TEST(SheetTable, KeepsTwoMembersOutOfAlphabeticalOrder) {
    std::vector<std::string> names = Sheet::names();
    EXPECT_EQ(names.size(), 43U);
    EXPECT_EQ(names.back(), "stg_get_cell_reference_at_location");
    names.pop_back();
    const auto marks = std::find(names.begin(), names.end(), "stg_get_comment_marks_rects");
    EXPECT_EQ(*std::next(marks), "stg_get_comment");
    std::iter_swap(marks, std::next(marks));
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
}

TEST(WordTable, HasThirtySixFunctionsInAlphabeticalOrder) {
    const std::vector<std::string> names = Word::names();
    EXPECT_EQ(names.size(), 36U);
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
}

TEST(SlideTable, HasTwentyTwoFunctionsInAlphabeticalOrder) {
    const std::vector<std::string> names = Slides::names();
    EXPECT_EQ(names.size(), 22U);
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
}

} // namespace
