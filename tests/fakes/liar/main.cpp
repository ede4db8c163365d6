// SPDX-License-Identifier: Apache-2.0
// An engine program that lies. It answers each call of the service with values of the
// right types and otherwise as the bytes of the opened document choose: with impossible
// numbers, twice, to nobody, with another type, with an error, never, by ending, after a
// flood of calls of its own, or with bytes that are no message. It is its own fork server.

#include "base/Packet.h"
#include "engine/protocol/ForkMessages.h"
#include "engine/protocol/Inherited.h"
#include "tests/fakes/liar/Lies.h"

#include <EngineProtocol.h>
#include <gio/gunixfdlist.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <iterator>
#include <string_view>

extern "C" {
#include <sys/pidfd.h>
}

namespace {

using namespace lectern;
using namespace lectern::test;

constexpr unsigned FLOOD = 200; // more than the service bears

const GDBusMethodInfo* methodOf(GDBusMessage* call) {
    const std::string_view interface = g_dbus_message_get_interface(call);
    for (GDBusInterfaceInfo* info :
         {lectern_ipc_word_interface_info(), lectern_ipc_sheet_interface_info(),
          lectern_ipc_slide_interface_info(), lectern_ipc_process_interface_info()}) {
        if (interface == info->name) {
            return g_dbus_interface_info_lookup_method(info, g_dbus_message_get_member(call));
        }
    }
    return nullptr;
}

class Liar {
public:
    explicit Liar(int socket) : mSocket(socket) {}

    void serve();

private:
    static GDBusMessage* filter(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                                gpointer self);
    void handle(GDBusMessage* call);
    void takeChoices(GDBusMessage* call, std::size_t argument);
    void takeSurface(GDBusMessage* call);
    void scribble();
    void answerSomehow(GDBusMessage* call, const GDBusMethodInfo& method, bool isOpen);
    void answer(GDBusMessage* call, GVariant* body, guint32 serialShift = 0);
    void call(unsigned times);

    void send(GDBusMessage* message) {
        g_dbus_connection_send_message(mConnection.get(), message, G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr,
                                       nullptr);
    }

    const int mSocket;
    Choices mChoices{""};
    GLibHolder<GDBusConnection> mConnection;
    unsigned char* mPixels = nullptr;
    std::size_t mPixelBytes = 0;
};

void Liar::serve() {
    const GLibHolder<GSocket> end(g_socket_new_from_fd(mSocket, nullptr));
    const GLibHolder<GSocketConnection> stream(g_socket_connection_factory_create_connection(end.get()));
    constexpr auto FLAGS = static_cast<GDBusConnectionFlags>(
        G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT | G_DBUS_CONNECTION_FLAGS_DELAY_MESSAGE_PROCESSING);
    mConnection.reset(
        g_dbus_connection_new_sync(G_IO_STREAM(stream.get()), nullptr, FLAGS, nullptr, nullptr, nullptr));
    if (!mConnection) {
        return;
    }
    g_dbus_connection_add_filter(mConnection.get(), filter, this, nullptr);
    g_signal_connect(mConnection.get(), "closed", G_CALLBACK(+[] { _exit(0); }), nullptr);
    g_dbus_connection_start_message_processing(mConnection.get());
    for (;;) {
        g_main_context_iteration(nullptr, TRUE);
    }
}

GDBusMessage* Liar::filter(GDBusConnection*, GDBusMessage* message, gboolean incoming, gpointer self) {
    if (incoming == FALSE || g_dbus_message_get_message_type(message) != G_DBUS_MESSAGE_TYPE_METHOD_CALL) {
        return message;
    }
    static_cast<Liar*>(self)->handle(message);
    g_object_unref(message);
    return nullptr;
}

void Liar::handle(GDBusMessage* call) {
    const GDBusMethodInfo* const method = methodOf(call);
    if (method == nullptr) {
        return;
    }
    const std::string_view name = method->name;
    const bool isOpen = name == "Open" || name == "OpenAny";
    if (isOpen) {
        takeChoices(call, name == "Open" ? 0 : 1);
    } else if (name == "SetSurface") {
        takeSurface(call);
    }
    scribble();
    answerSomehow(call, *method, isOpen);
}

// Reads the document, whose path is this argument of the call.
void Liar::takeChoices(GDBusMessage* call, std::size_t argument) {
    const GLibHolder<GVariant> path(g_variant_get_child_value(g_dbus_message_get_body(call), argument));
    std::ifstream file(g_variant_is_of_type(path.get(), G_VARIANT_TYPE_STRING)
                           ? g_variant_get_string(path.get(), nullptr)
                           : "");
    mChoices = Choices({std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()});
}

void Liar::takeSurface(GDBusMessage* call) {
    GUnixFDList* const files = g_dbus_message_get_unix_fd_list(call);
    const int memory = files != nullptr ? g_unix_fd_list_get(files, 0, nullptr) : -1;
    struct stat status {};
    if (memory < 0 || fstat(memory, &status) != 0) {
        return;
    }
    void* const pixels = mmap(nullptr, static_cast<std::size_t>(status.st_size), PROT_READ | PROT_WRITE,
                              MAP_SHARED, memory, 0);
    close(memory);
    if (pixels != MAP_FAILED) {
        mPixels = static_cast<unsigned char*>(pixels); // older ones stay mapped, as a liar would keep them
        mPixelBytes = static_cast<std::size_t>(status.st_size);
    }
}

void Liar::scribble() {
    for (int i = 0; i < 16 && mPixelBytes > 0; ++i) {
        mPixels[mChoices.number() % mPixelBytes] = static_cast<unsigned char>(mChoices.below(256));
    }
}

void Liar::answerSomehow(GDBusMessage* call, const GDBusMethodInfo& method, bool isOpen) {
    const GLibHolder<GVariant> lie = lyingAnswer(method, isOpen, mChoices);
    switch (mChoices.below(isOpen ? 250 : 140)) {
    case 0:
        _exit(0);
    case 1:
        return; // the service waits until its limit
    case 2:
        answer(call, lie.get());
        answer(call, lie.get());
        return;
    case 3:
        answer(call, lie.get(), 1);
        break;
    case 4:
        answer(call, g_variant_new("(s)", "of another type"));
        return;
    case 5: {
        const GLibHolder<GDBusMessage> error(
            g_dbus_message_new_method_error_literal(call, "org.example.Error", "so it says"));
        send(error.get());
        return;
    }
    case 6:
        this->call(FLOOD);
        break;
    case 7:
        this->call(3);
        break;
    case 8:
        (void)!write(mSocket, "no message at all", 17);
        break;
    default:
        break;
    }
    answer(call, lie.get());
}

void Liar::answer(GDBusMessage* call, GVariant* body, guint32 serialShift) {
    const GLibHolder<GDBusMessage> reply(g_dbus_message_new_method_reply(call));
    g_dbus_message_set_reply_serial(reply.get(), g_dbus_message_get_serial(call) + serialShift);
    g_dbus_message_set_body(reply.get(), body);
    send(reply.get());
}

void Liar::call(unsigned times) {
    for (unsigned i = 0; i < times; ++i) {
        const GLibHolder<GDBusMessage> message(
            mChoices.below(2) == 0
                ? g_dbus_message_new_method_call(nullptr, "/", "org.freedesktop.DBus.Peer", "Ping")
                : g_dbus_message_new_signal("/word", "org.example.Liar", "Told"));
        send(message.get());
    }
}

void becomeEngine(Packet request) {
    prctl(PR_SET_NAME, "lectern-engine");
    if (dup2(request.files[0].get(), engine::ENGINE_SOCKET) < 0) {
        _exit(1);
    }
    request.files[0].reset();
    (void)request.files[1].release(); // the folder's lock ends with the process
    Liar(engine::ENGINE_SOCKET).serve();
    _exit(0);
}

} // namespace

int main() {
    (void)std::signal(SIGCHLD, SIG_IGN);
    const FileDescriptor requests(engine::ENGINE_SOCKET);
    for (;;) {
        Packet request;
        if (!receivePacket(requests.get(), request) || request.files.size() != 3) {
            return 0;
        }
        const pid_t child = fork();
        if (child == 0) {
            becomeEngine(std::move(request));
        }
        const FileDescriptor pidfd(pidfd_open(child, 0));
        (void)sendPacket(requests.get(), std::string_view(&engine::FORKED, 1), {pidfd.get()});
    }
}
