// SPDX-License-Identifier: Apache-2.0
#include "engine/host/Connection.h"

#include "engine/protocol/Inherited.h"

#include <sys/socket.h>

#include <utility>

namespace lectern::engine {
namespace {

// An engine passes no files to the service. GLib would keep those of a message that never
// ends, until this process has no descriptors left. Kernels before Linux 6.16 lack the
// option.
void refuseFiles(int socket) {
    constexpr int PASS_RIGHTS = 83; // SO_PASSRIGHTS, not in older headers
    const int off = 0;
    (void)setsockopt(socket, SOL_SOCKET, PASS_RIGHTS, &off, sizeof off);
}

} // namespace

std::unique_ptr<Connection> Connection::make(FileDescriptor socket) {
    std::unique_ptr<Connection> connection(new Connection());
    g_main_context_push_thread_default(connection->mContext.get());
    const bool opened = connection->open(std::move(socket));
    g_main_context_pop_thread_default(connection->mContext.get());
    return opened ? std::move(connection) : nullptr;
}

Connection::Connection() : mContext(g_main_context_new()) {}

bool Connection::open(FileDescriptor socket) {
    refuseFiles(socket.get());
    const GLibHolder<GSocket> end(g_socket_new_from_fd(socket.get(), nullptr));
    if (!end) {
        return false;
    }
    socket.release();
    const GLibHolder<GSocketConnection> stream(g_socket_connection_factory_create_connection(end.get()));
    const GLibHolder<char> guid(g_dbus_generate_guid());
    constexpr auto FLAGS =
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_SERVER |
                                          G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_REQUIRE_SAME_USER |
                                          G_DBUS_CONNECTION_FLAGS_DELAY_MESSAGE_PROCESSING);
    mBus.reset(
        g_dbus_connection_new_sync(G_IO_STREAM(stream.get()), guid.get(), FLAGS, nullptr, nullptr, nullptr));
    if (!mBus) {
        return false;
    }
    mFilter.install(mBus.get());
    g_signal_connect(mBus.get(), "closed", G_CALLBACK(noteEnd), this);
    g_dbus_connection_start_message_processing(mBus.get());

    constexpr auto PLAIN = static_cast<GDBusProxyFlags>(G_DBUS_PROXY_FLAGS_DO_NOT_LOAD_PROPERTIES |
                                                        G_DBUS_PROXY_FLAGS_DO_NOT_CONNECT_SIGNALS);
    mProcess.reset(
        lectern_ipc_process_proxy_new_sync(mBus.get(), PLAIN, nullptr, PROCESS_PATH, nullptr, nullptr));
    mWord.reset(lectern_ipc_word_proxy_new_sync(mBus.get(), PLAIN, nullptr, WORD_PATH, nullptr, nullptr));
    mSheet.reset(lectern_ipc_sheet_proxy_new_sync(mBus.get(), PLAIN, nullptr, SHEET_PATH, nullptr, nullptr));
    mSlide.reset(lectern_ipc_slide_proxy_new_sync(mBus.get(), PLAIN, nullptr, SLIDE_PATH, nullptr, nullptr));
    return mProcess && mWord && mSheet && mSlide;
}

// GLib's report that the connection has ended holds a reference to the
// connection until the main context dispatches it. Dispatch it here, or the
// socket would never be closed.
Connection::~Connection() {
    awaitEnd();
}

void Connection::awaitEnd() {
    while (mBus && !mClosed) {
        g_main_context_iteration(mContext.get(), TRUE);
    }
}

// GLib closes a connection on which it cannot decode a message.
void Connection::noteEnd(GDBusConnection* /*bus*/, gboolean /*vanished*/, GError* error, gpointer self) {
    auto& connection = *static_cast<Connection*>(self);
    connection.mClosed = true;
    connection.mBroken = g_error_matches(error, G_IO_ERROR, G_IO_ERROR_INVALID_ARGUMENT) != FALSE;
}

bool Connection::wasBroken() {
    if (g_dbus_connection_is_closed(mBus.get()) == FALSE) {
        return false;
    }
    awaitEnd();
    return mBroken;
}

} // namespace lectern::engine
