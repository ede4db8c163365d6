// SPDX-License-Identifier: Apache-2.0
// The engine's side of the engine protocol: its endpoints with a fake suite, and calls
// with any arguments in any order. Input: bytes that choose them.
#include "engine/process/EngineLoop.h"
#include "tests/fakes/liar/Lies.h"

#include <EngineProtocol.h>
#include <gio/gunixfdlist.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

namespace {

using namespace lectern;
using lectern::test::Choices;

struct Interface {
    GDBusInterfaceInfo* info;
    const char* path;
};

struct Side {
    std::string folder;
    std::unique_ptr<engine::Office> office;
    std::unique_ptr<engine::EngineLoop> loop;
    GLibHolder<GDBusConnection> service;
    std::vector<Interface> interfaces;
};

Side& side() {
    static Side& only = *new Side();
    return only;
}

void connectService(int socket) {
    const GLibHolder<GSocket> end(g_socket_new_from_fd(socket, nullptr));
    const GLibHolder<GSocketConnection> stream(g_socket_connection_factory_create_connection(end.get()));
    const GLibHolder<char> guid(g_dbus_generate_guid());
    side().service.reset(g_dbus_connection_new_sync(G_IO_STREAM(stream.get()), guid.get(),
                                                    G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_SERVER, nullptr,
                                                    nullptr, nullptr));
}

GLibHolder<GVariant> argumentsOf(const GDBusMethodInfo& method, Choices& choices) {
    std::vector<GLibHolder<GVariant>> values;
    std::vector<GVariant*> all;
    for (GDBusArgInfo** argument = method.in_args; argument != nullptr && *argument != nullptr; ++argument) {
        const std::string signature = (*argument)->signature;
        GVariant* value = nullptr;
        if (signature == "h") {
            value = g_variant_new_handle(0);
        } else if (std::string((*argument)->name) == "path") {
            value = g_variant_new_string((side().folder + "/document").c_str());
        } else if (signature == "s") {
            value = g_variant_new_string("");
        } else if (signature == "y") {
            value = g_variant_new_byte(static_cast<guint8>(choices.below(256)));
        }
        values.push_back(
            value != nullptr
                ? GLibHolder<GVariant>(g_variant_ref_sink(value))
                : test::lieOf(reinterpret_cast<const GVariantType*>((*argument)->signature), choices));
        all.push_back(values.back().get());
    }
    return GLibHolder<GVariant>(g_variant_ref_sink(g_variant_new_tuple(all.data(), all.size())));
}

// A sealed memory of any size, as a surface's has to be but need not.
int memoryOf(Choices& choices) {
    const int memory = memfd_create("fuzz", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    (void)!ftruncate(memory, static_cast<off_t>(choices.below(256)) * 4096);
    return memory;
}

void finish(GObject*, GAsyncResult* result, gpointer done) {
    GLibHolder<GDBusMessage> reply(
        g_dbus_connection_send_message_with_reply_finish(side().service.get(), result, nullptr));
    *static_cast<bool*>(done) = true;
}

void call(const Interface& interface, const GDBusMethodInfo& method, Choices& choices) {
    const GLibHolder<GDBusMessage> message(
        g_dbus_message_new_method_call(nullptr, interface.path, interface.info->name, method.name));
    const GLibHolder<GVariant> arguments = argumentsOf(method, choices);
    g_dbus_message_set_body(message.get(), arguments.get());
    if (std::string(method.name) == "SetSurface") {
        const int memory = memoryOf(choices);
        const GLibHolder<GUnixFDList> files(g_unix_fd_list_new_from_array(&memory, 1));
        g_dbus_message_set_unix_fd_list(message.get(), files.get());
    }
    bool done = false;
    g_dbus_connection_send_message_with_reply(side().service.get(), message.get(),
                                              G_DBUS_SEND_MESSAGE_FLAGS_NONE, -1, nullptr, nullptr, finish,
                                              &done);
    while (!done) {
        g_main_context_iteration(nullptr, TRUE);
    }
}

const GDBusMethodInfo& anyMethod(const Interface& interface, Choices& choices) {
    unsigned count = 0;
    while (interface.info->methods[count] != nullptr) {
        ++count;
    }
    return *interface.info->methods[choices.below(count)];
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    char name[] = "/tmp/lectern-fuzz-XXXXXX";
    side().folder = mkdtemp(name);
    std::atexit([] { std::filesystem::remove_all(side().folder); });
    side().interfaces = {{lectern_ipc_word_interface_info(), "/word"},
                         {lectern_ipc_sheet_interface_info(), "/sheet"},
                         {lectern_ipc_slide_interface_info(), "/slide"},
                         {lectern_ipc_process_interface_info(), "/process"}};
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) {
        return 1;
    }
    std::thread service([&] { connectService(ends[0]); });
    side().office = engine::Office::start(side().folder + "/profile");
    side().loop = engine::EngineLoop::connect(ends[1], *side().office, side().folder);
    service.join();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    constexpr int CALLS = 24;
    Choices choices({reinterpret_cast<const char*>(data), size});
    std::ofstream(side().folder + "/document") << "rows=" << 10 * choices.below(256) << "\ntext=some words\n";
    const Interface& kind = side().interfaces[choices.below(3)];
    call(kind, *g_dbus_interface_info_lookup_method(kind.info, "Open"), choices);
    for (int i = 0; i < CALLS; ++i) {
        const Interface& interface = choices.below(16) == 0 ? side().interfaces[choices.below(4)] : kind;
        call(interface, anyMethod(interface, choices), choices);
    }
    return 0;
}
