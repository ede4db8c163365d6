// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/PrivateFile.h"

namespace lectern::viewer {

std::unique_ptr<PrivateFile> PrivateFile::create(const std::string& name, GError** error) {
    const GLibHolder<char> folder(g_dir_make_tmp("lectern-XXXXXX", error));
    if (folder == nullptr) {
        return nullptr;
    }
    return std::unique_ptr<PrivateFile>(
        new PrivateFile(g_file_new_build_filename(folder.get(), name.c_str(), nullptr)));
}

PrivateFile::~PrivateFile() {
    const GLibHolder<GFile> folder(g_file_get_parent(mFile.get()));
    g_file_delete(mFile.get(), nullptr, nullptr);
    g_file_delete(folder.get(), nullptr, nullptr);
}

} // namespace lectern::viewer
