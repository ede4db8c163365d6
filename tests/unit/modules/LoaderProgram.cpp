// SPDX-License-Identifier: Apache-2.0
// Fills one of the function tables: modules_loader wtg|stg|sstg
#include "modules/SSTGFunc.h"
#include "modules/STGFunc.h"
#include "modules/Singleton.h"
#include "modules/WTGFunc.h"

#include <cstdio>
#include <cstring>

int main(int argc, char** argv) {
    const char* prefix = argc == 2 ? argv[1] : "";
    if (std::strcmp(prefix, "wtg") == 0) {
        Singleton<WTGFunc>::Instance().SetFunctionPointers();
    } else if (std::strcmp(prefix, "stg") == 0) {
        Singleton<STGFunc>::Instance().SetFunctionPointers();
    } else if (std::strcmp(prefix, "sstg") == 0) {
        Singleton<SSTGFunc>::Instance().SetFunctionPointers();
    } else {
        return 2;
    }
    std::puts("loaded");
    return 0;
}
