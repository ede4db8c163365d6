// SPDX-License-Identifier: Apache-2.0
// The connection to an engine that sends more than answers. The engine's end is a bus
// connection of the test.
#include "engine/host/Connection.h"

#include "base/FileDescriptor.h"
#include "engine/host/AnswerFilter.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <thread>

namespace lectern::engine {
namespace {

// The engine's end. It answers calls with success, and counts the messages that arrive.
class Peer {
public:
    explicit Peer(int socket) {
        const GLibHolder<GSocket> end(g_socket_new_from_fd(socket, nullptr));
        const GLibHolder<GSocketConnection> stream(g_socket_connection_factory_create_connection(end.get()));
        mConnection.reset(g_dbus_connection_new_sync(G_IO_STREAM(stream.get()), nullptr,
                                                     G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT, nullptr,
                                                     nullptr, nullptr));
        g_dbus_connection_add_filter(mConnection.get(), filter, this, nullptr);
    }
    ~Peer() { g_dbus_connection_close_sync(mConnection.get(), nullptr, nullptr); }
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    // Sends this many calls and signals.
    void sendUnasked(int count) {
        for (int i = 0; i < count; ++i) {
            const GLibHolder<GDBusMessage> message(
                i % 2 == 0 ? g_dbus_message_new_method_call(nullptr, "/", "org.freedesktop.DBus.Peer", "Ping")
                           : g_dbus_message_new_signal("/process", "org.example.Engine", "Told"));
            g_dbus_connection_send_message(mConnection.get(), message.get(), G_DBUS_SEND_MESSAGE_FLAGS_NONE,
                                           nullptr, nullptr);
        }
        g_dbus_connection_flush_sync(mConnection.get(), nullptr, nullptr);
    }
    int arrived() const { return mArrived; }
    bool isClosed() const { return g_dbus_connection_is_closed(mConnection.get()) != FALSE; }

private:
    static GDBusMessage* filter(GDBusConnection* connection, GDBusMessage* message, gboolean incoming,
                                gpointer self) {
        if (incoming == FALSE) {
            return message;
        }
        ++static_cast<Peer*>(self)->mArrived;
        const GLibHolder<GDBusMessage> reply(g_dbus_message_new_method_reply(message));
        g_dbus_message_set_body(reply.get(), g_variant_new("(i)", 0));
        g_dbus_connection_send_message(connection, reply.get(), G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr,
                                       nullptr);
        g_object_unref(message);
        return nullptr;
    }

    GLibHolder<GDBusConnection> mConnection;
    std::atomic<int> mArrived = 0;
};

class ConnectionTest : public testing::Test {
protected:
    void SetUp() override {
        int ends[2];
        ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
        theirs = dup(ends[1]);
        std::thread start([&] { peer = std::make_unique<Peer>(ends[1]); });
        connection = Connection::make(FileDescriptor(ends[0]));
        start.join();
        ASSERT_NE(connection, nullptr);
    }
    void TearDown() override {
        peer.reset();
        shutdown(theirs, SHUT_RDWR);
        connection.reset();
        close(theirs);
    }
    // Whether the engine answers a call.
    bool call() const {
        gint result = -1;
        return lectern_ipc_process_call_release_memory_sync(connection->process(), G_DBUS_CALL_FLAGS_NONE,
                                                            G_MAXINT, &result, nullptr, nullptr) != FALSE &&
               result == 0;
    }

    int theirs = -1; // a duplicate of the engine's end
    std::unique_ptr<Peer> peer;
    std::unique_ptr<Connection> connection;
};

TEST_F(ConnectionTest, CallsAreAnswered) {
    EXPECT_TRUE(call());
    EXPECT_TRUE(call());
    EXPECT_EQ(peer->arrived(), 2);
}

TEST_F(ConnectionTest, CallsAndSignalsOfAnEngineAreDroppedWithoutAnAnswer) {
    peer->sendUnasked(AnswerFilter::TOLERATED);
    EXPECT_TRUE(call());
    EXPECT_EQ(peer->arrived(), 1) << "the call only";
}

TEST_F(ConnectionTest, AnEngineThatSendsTooMuchUnaskedIsCutOff) {
    peer->sendUnasked(AnswerFilter::TOLERATED + 1);
    call(); // it can still be answered before the engine is cut off
    for (int waited = 0; !peer->isClosed() && waited < 20000; ++waited) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_TRUE(peer->isClosed());
    EXPECT_FALSE(call());
}

// Files of an unfinished message would be kept by GLib, until this process has no
// descriptors left.
TEST_F(ConnectionTest, FilesAreNotTakenFromAnEngine) {
    constexpr int PASS_RIGHTS = 83;
    const int on = 1;
    if (setsockopt(theirs, SOL_SOCKET, PASS_RIGHTS, &on, sizeof on) != 0) {
        GTEST_SKIP() << "this kernel cannot refuse them, see docs/engine.md";
    }
    char text = 'l';
    iovec part{&text, 1};
    alignas(cmsghdr) char control[CMSG_SPACE(sizeof(int))] = {};
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = control;
    message.msg_controllen = sizeof control;
    cmsghdr* const header = CMSG_FIRSTHDR(&message);
    header->cmsg_level = SOL_SOCKET;
    header->cmsg_type = SCM_RIGHTS;
    header->cmsg_len = CMSG_LEN(sizeof(int));
    std::memcpy(CMSG_DATA(header), &theirs, sizeof theirs);
    EXPECT_EQ(sendmsg(theirs, &message, MSG_NOSIGNAL), -1);
    EXPECT_EQ(errno, EPERM);
}

} // namespace
} // namespace lectern::engine
