// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace lectern::test {

// A folder of a user's, with documents, and programs of the driver that open them. They
// run from copies, because the build's folder may be closed to other users.
class UserFolder {
public:
    explicit UserFolder(uid_t user);
    // Ends the programs and removes the folder.
    ~UserFolder();
    UserFolder(const UserFolder&) = delete;
    UserFolder& operator=(const UserFolder&) = delete;

    // Writes a file that only the user can read, and returns its path.
    std::string write(const std::string& name, const std::string& contents) const;
    const std::string& path() const { return mPath; }

    enum class Kernel { AsItIs, WithoutLandlock };
    // Starts a driver, as a service with the document open, whose engine is this program.
    // `policy` is its LECTERN_SANDBOX.
    pid_t open(const std::string& document, const std::string& engine, Kernel kernel = Kernel::AsItIs,
               const std::string& policy = "");
    // What the drivers have written to standard output and standard error.
    std::string output() const;

private:
    [[noreturn]] void becomeDriver(const std::string& document, const std::string& engine, Kernel kernel,
                                   const std::string& policy) const;

    const uid_t mUser;
    std::string mPath;
    int mInput[2]{-1, -1}; // drivers end when it ends
    std::vector<pid_t> mDrivers;
};

} // namespace lectern::test
