// SPDX-License-Identifier: Apache-2.0
// bare_slides FILE WIDTH HEIGHT ACROSS DOWN FOLDER [MOST]: writes every slide, or
// the first screen of every sheet, as the office suite alone paints it, without our
// code, to FOLDER/pixels, one after the other. ACROSS and DOWN are the painted size in
// twips; MOST is the number of slides to end after. The suite leaves files in FOLDER,
// and crashes at an ordinary exit.
#include <LibreOfficeKit/LibreOfficeKit.hxx>
#include <LibreOfficeKit/LibreOfficeKitInit.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

int paintAll(char** argv) {
    const std::string folder = argv[6];
    setenv("TMPDIR", folder.c_str(), 1);
    // It leaves a lock file beside what it opens.
    const std::filesystem::path copy =
        folder + "/document" + std::filesystem::path(argv[1]).extension().string();
    std::filesystem::copy_file(argv[1], copy);
    lok::Office* const suite =
        lok::lok_cpp_init(LECTERN_OFFICE_PROGRAM, ("file://" + folder + "/profile").c_str());
    lok::Document* const document =
        suite == nullptr
            ? nullptr
            : suite->documentLoad(("file://" + copy.string()).c_str(), "Batch=true,Language=en-US");
    if (document == nullptr) {
        return 1;
    }
    document->initializeForRendering("{}");
    const int width = std::atoi(argv[2]);  // NOLINT(cert-err34-c)
    const int height = std::atoi(argv[3]); // NOLINT(cert-err34-c)
    std::vector<char> pixels(static_cast<size_t>(width) * static_cast<size_t>(height) * 4);
    std::ofstream out(folder + "/pixels", std::ios::binary);
    const int most = argv[7] == nullptr ? document->getParts() : std::atoi(argv[7]); // NOLINT(cert-err34-c)
    for (int slide = 0; slide < std::min(most, document->getParts()); ++slide) {
        document->setPart(slide);
        document->paintTile(reinterpret_cast<unsigned char*>(pixels.data()), width, height, 0, 0,
                            std::atoi(argv[4]),  // NOLINT(cert-err34-c)
                            std::atoi(argv[5])); // NOLINT(cert-err34-c)
        out.write(pixels.data(), static_cast<std::streamsize>(pixels.size()));
    }
    out.close();
    return out ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    _exit(argc == 7 || argc == 8 ? paintAll(argv) : 2);
}
