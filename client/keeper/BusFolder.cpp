// SPDX-License-Identifier: Apache-2.0
#include "client/keeper/BusFolder.h"

#include "base/GLibHolder.h"
#include <lectern/Bus.h>

#include <gio/gio.h>

#include <filesystem>
#include <fstream>

namespace lectern {

namespace {

bool writeFile(const std::string& path, const std::string& text) {
    std::ofstream file(path);
    file << text;
    file.close();
    return !file.fail();
}

std::string markup(const std::string& text) {
    const GLibHolder<char> escaped(g_markup_escape_text(text.data(), static_cast<gssize>(text.size())));
    return escaped.get();
}

std::string busConfiguration(const std::string& folder) {
    const GLibHolder<char> socket(g_dbus_address_escape_value((folder + "/bus").c_str()));
    return "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
           " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
           "<busconfig>\n"
           "  <type>session</type>\n"
           "  <listen>unix:path=" +
           markup(socket.get()) +
           "</listen>\n"
           "  <auth>EXTERNAL</auth>\n"
           "  <servicedir>" +
           markup(folder) +
           "/services</servicedir>\n"
           "  <policy context=\"default\">\n"
           "    <allow send_destination=\"*\"/>\n"
           "    <allow receive_sender=\"*\"/>\n"
           "    <allow own=\"*\"/>\n"
           "  </policy>\n"
           "</busconfig>\n";
}

std::string activation(const std::string& folder) {
    return std::string("[D-BUS Service]\nName=") + SERVICE_NAME + "\nExec=" + folder + "/service\n";
}

} // namespace

BusFolder::BusFolder(const std::string& service) {
    // The daemon parses the folder's path as XML, in an address and in a
    // command line. A fixed location avoids escaping in all three, and the
    // protocol uses /tmp anyway. The service is reached through a link, because
    // its own path may contain any characters.
    std::string pattern = "/tmp/lectern-bus-XXXXXX";
    if (g_mkdtemp(pattern.data()) == nullptr) {
        return;
    }
    mPath = pattern;
    std::error_code failure;
    const std::filesystem::path program = std::filesystem::absolute(service, failure);
    std::filesystem::create_directory(mPath + "/services", failure);
    std::filesystem::create_symlink(program, mPath + "/service", failure);
    mComplete = !failure && writeFile(configuration(), busConfiguration(mPath)) &&
                writeFile(mPath + "/services/" + SERVICE_NAME + ".service", activation(mPath));
}

BusFolder::~BusFolder() {
    if (!mPath.empty()) {
        std::error_code ignored;
        std::filesystem::remove_all(mPath, ignored);
    }
}

} // namespace lectern
