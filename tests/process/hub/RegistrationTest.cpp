// SPDX-License-Identifier: Apache-2.0
#include "tests/process/hub/HubFixture.h"

#include <unistd.h>

#include <cstdlib>
#include <string>

namespace {

class Registration : public HubFixture {
protected:
    std::string introspect(const char* path) const {
        return mClient
            .call(SERVICE, path, "org.freedesktop.DBus.Introspectable", "Introspect", g_variant_new("()"))
            .text;
    }

    bool addCategory(const char* category, const HubMethod* methods) {
        return HubRegisterCategory(mHandle, category, methods, nullptr, nullptr, mError.get());
    }

    void expectInvalid(const char* category, const HubMethod* methods, const std::string& reason) {
        EXPECT_FALSE(addCategory(category, methods));
        EXPECT_EQ(mError.code(), HUB_ERROR_INVALID);
        EXPECT_NE(mError.text().find(reason), std::string::npos) << mError.text();
    }
};

bool handleNothing(HubHandle*, HubMessage*, void*) {
    return true;
}

TEST_F(Registration, ServesUnderTheNameAfterAttaching) {
    attachService();
    EXPECT_EQ(call("echo", "text"), (Answer{"", "text"}));
}

TEST_F(Registration, NameAppearsOnlyWithAttaching) {
    registerService();
    EXPECT_FALSE(mClient.processOf(SERVICE).has_value());
    ASSERT_TRUE(HubGmainAttach(mHandle, mLoop, mError.get()));
    EXPECT_EQ(mClient.processOf(SERVICE), getpid());
}

TEST_F(Registration, TakenNameIsRefused) {
    ASSERT_TRUE(mClient.own(SERVICE));
    EXPECT_FALSE(HubRegister(SERVICE, &mHandle, mError.get()));
    EXPECT_EQ(mHandle, nullptr);
    EXPECT_EQ(mError.code(), HUB_ERROR_NAME_TAKEN);
    EXPECT_NE(mError.text().find(SERVICE), std::string::npos);
}

TEST_F(Registration, NameTakenBetweenRegisteringAndAttachingIsRefused) {
    registerService();
    ASSERT_TRUE(mClient.own(SERVICE));
    EXPECT_FALSE(HubGmainAttach(mHandle, mLoop, mError.get()));
    EXPECT_EQ(mError.code(), HUB_ERROR_NAME_TAKEN);
}

TEST_F(Registration, RefusedNameIsNotQueuedFor) {
    registerService();
    const BusClient rival(mBus.address());
    ASSERT_TRUE(rival.own(SERVICE));
    ASSERT_FALSE(HubGmainAttach(mHandle, mLoop, mError.get()));
    ASSERT_TRUE(g_dbus_connection_close_sync(rival.connection(), nullptr, nullptr));
    ASSERT_TRUE(mClient.waitUntilUnowned(SERVICE));
    EXPECT_FALSE(mClient.processOf(SERVICE).has_value());
}

TEST_F(Registration, AttachingAgainAfterTheNameIsFreeSucceeds) {
    registerService();
    const BusClient rival(mBus.address());
    ASSERT_TRUE(rival.own(SERVICE));
    ASSERT_FALSE(HubGmainAttach(mHandle, mLoop, mError.get()));
    ASSERT_TRUE(g_dbus_connection_close_sync(rival.connection(), nullptr, nullptr));
    ASSERT_TRUE(mClient.waitUntilUnowned(SERVICE));
    ASSERT_TRUE(HubGmainAttach(mHandle, mLoop, mError.get())) << mError.text();
    EXPECT_EQ(call("echo", "text").text, "text");
}

TEST_F(Registration, NameCannotBeTakenAwayLater) {
    attachService();
    constexpr guint32 REPLACE_EXISTING = 2;
    constexpr guint32 DO_NOT_QUEUE = 4;
    const Answer answer = mClient.call("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "RequestName",
                                       g_variant_new("(su)", SERVICE, REPLACE_EXISTING | DO_NOT_QUEUE));
    EXPECT_EQ(answer.text, "3") << "the name exists";
    EXPECT_EQ(call("echo", "text").text, "text");
}

TEST_F(Registration, MalformedNamesAreRefused) {
    for (const char* name :
         {"", "oneelement", ":1.5", "com..kestrel", "com.kestrel.9office", "com kestrel"}) {
        EXPECT_FALSE(HubRegister(name, &mHandle, mError.get())) << name;
        EXPECT_EQ(mError.code(), HUB_ERROR_INVALID) << name;
        EXPECT_EQ(mHandle, nullptr);
    }
    EXPECT_FALSE(HubRegister(nullptr, &mHandle, mError.get()));
    EXPECT_EQ(mError.code(), HUB_ERROR_INVALID);
    EXPECT_FALSE(HubRegister(SERVICE, nullptr, mError.get()));
    EXPECT_EQ(mError.code(), HUB_ERROR_INVALID);
}

TEST_F(Registration, MissingBusIsAnError) {
    mBus.stop();
    EXPECT_FALSE(HubRegister(SERVICE, &mHandle, mError.get()));
    EXPECT_EQ(mHandle, nullptr);
    EXPECT_EQ(mError.code(), HUB_ERROR_BUS);
    EXPECT_NE(mError.text().find("can't connect to the bus"), std::string::npos);
}

TEST_F(Registration, ErrorsMayBeIgnored) {
    EXPECT_FALSE(HubRegister("oneelement", &mHandle, nullptr));
    ASSERT_TRUE(HubRegister(SERVICE, &mHandle, nullptr));
    EXPECT_FALSE(HubRegisterCategory(mHandle, "events", EVENT_METHODS, nullptr, nullptr, nullptr));
    EXPECT_FALSE(HubGmainAttach(mHandle, nullptr, nullptr));
}

TEST_F(Registration, StarterBusGoesBeforeTheSessionBus) {
    setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus", 1);
    setenv("DBUS_STARTER_ADDRESS", mBus.address().c_str(), 1);
    attachService();
    EXPECT_EQ(call("echo", "text").text, "text");
}

TEST_F(Registration, SystemBusThatStartedTheProcessIsUsed) {
    setenv("DBUS_SYSTEM_BUS_ADDRESS", mBus.address().c_str(), 1);
    setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus", 1);
    setenv("DBUS_STARTER_BUS_TYPE", "system", 1);
    attachService();
    EXPECT_EQ(call("echo", "text").text, "text");
    unsetenv("DBUS_SYSTEM_BUS_ADDRESS");
}

TEST_F(Registration, CategoriesAreSeparateObjects) {
    attachService();
    const auto callAt = [this](const char* path, const char* interface, const char* method) {
        return mClient.call(SERVICE, path, interface, method, g_variant_new("(s)", "x"));
    };
    EXPECT_EQ(callAt("/common", "com.kestrel.hubtest.common", "echo").text, "x");
    EXPECT_EQ(callAt("/events", "com.kestrel.hubtest.events", "echo").text, "x");
    EXPECT_EQ(callAt("/common", "com.kestrel.hubtest.events", "echo").error, UNKNOWN_METHOD);
    EXPECT_EQ(callAt("/common", "com.kestrel.hubtest.common", "silent").error, UNKNOWN_METHOD);
}

TEST_F(Registration, NestedCategoryGetsANestedInterface) {
    registerService();
    ASSERT_TRUE(addCategory("/a/b_2", COMMON_METHODS)) << mError.text();
    ASSERT_TRUE(HubGmainAttach(mHandle, mLoop, mError.get()));
    EXPECT_EQ(
        mClient.call(SERVICE, "/a/b_2", "com.kestrel.hubtest.a.b_2", "echo", g_variant_new("(s)", "x")).text,
        "x");
}

TEST_F(Registration, IntrospectionNamesEachMethodWithItsArguments) {
    attachService();
    const std::string xml = introspect("/events");
    EXPECT_NE(xml.find("<interface name=\"com.kestrel.hubtest.events\">"), std::string::npos) << xml;
    for (const HubMethod* method = EVENT_METHODS; method->name != nullptr; ++method) {
        const std::string element = "    <method name=\"" + std::string(method->name) +
                                    "\">\n"
                                    "      <arg type=\"s\" name=\"payload\" direction=\"in\"/>\n"
                                    "      <arg type=\"s\" name=\"reply\" direction=\"out\"/>\n"
                                    "    </method>\n";
        EXPECT_NE(xml.find(element), std::string::npos) << method->name << " in " << xml;
    }
}

TEST_F(Registration, IntrospectionOfTheRootNamesEachCategory) {
    attachService();
    const std::string xml = introspect("/");
    EXPECT_NE(xml.find("<node name=\"events\"/>"), std::string::npos) << xml;
    EXPECT_NE(xml.find("<node name=\"common\"/>"), std::string::npos) << xml;
}

TEST_F(Registration, CategoryWithoutMethodsIsAnEmptyInterface) {
    const HubMethod none[] = {{nullptr, nullptr, 0}};
    registerService();
    ASSERT_TRUE(addCategory("/none", none)) << mError.text();
    ASSERT_TRUE(HubGmainAttach(mHandle, mLoop, mError.get()));
    EXPECT_NE(introspect("/none").find("com.kestrel.hubtest.none"), std::string::npos);
}

TEST_F(Registration, MalformedCategoriesAreRefused) {
    registerService();
    for (const char* category :
         {"", "/", "events", "/events/", "//events", "/e-vents", "/1st", "/b\xC3\xA4r"}) {
        expectInvalid(category, EVENT_METHODS, "not a category");
    }
    expectInvalid(nullptr, EVENT_METHODS, "needs");
    expectInvalid("/other", nullptr, "needs");
    EXPECT_FALSE(HubRegisterCategory(nullptr, "/x", EVENT_METHODS, nullptr, nullptr, mError.get()));
}

TEST_F(Registration, CategoryRegisteredTwiceIsRefusedAndTheFirstStays) {
    attachService();
    EXPECT_FALSE(addCategory("/events", COMMON_METHODS));
    EXPECT_EQ(mError.code(), HUB_ERROR_INVALID);
    EXPECT_EQ(call("silent", "").error, NO_REPLY);
}

TEST_F(Registration, FaultyMethodTablesAreRefused) {
    registerService();
    const HubMethod badName[] = {{"not a name", handleNothing, 0}, {nullptr, nullptr, 0}};
    const HubMethod noHandler[] = {{"orphan", nullptr, 0}, {nullptr, nullptr, 0}};
    const HubMethod flagged[] = {{"flagged", handleNothing, 1}, {nullptr, nullptr, 0}};
    const HubMethod doubled[] = {{"one", handleNothing, 0}, {"one", handleNothing, 0}, {nullptr, nullptr, 0}};
    expectInvalid("/other", badName, "\"not a name\" is not a method name");
    expectInvalid("/other", noHandler, "\"orphan\" has no handler");
    expectInvalid("/other", flagged, "\"flagged\" has unknown flags");
    expectInvalid("/other", doubled, "\"one\" is listed twice");
    EXPECT_TRUE(addCategory("/other", EVENT_METHODS)) << "a refused category leaves nothing behind";
}

TEST_F(Registration, SignalsAndPropertiesMayBeEmptyButNotMore) {
    registerService();
    const HubSignal signals[] = {{"changed", 0}, {nullptr, 0}};
    const HubProperty properties[] = {{"count", 0}, {nullptr, 0}};
    EXPECT_FALSE(HubRegisterCategory(mHandle, "/other", EVENT_METHODS, signals, nullptr, mError.get()));
    EXPECT_EQ(mError.code(), HUB_ERROR_INVALID);
    EXPECT_FALSE(HubRegisterCategory(mHandle, "/other", EVENT_METHODS, nullptr, properties, mError.get()));
    EXPECT_EQ(mError.code(), HUB_ERROR_INVALID);
    EXPECT_TRUE(
        HubRegisterCategory(mHandle, "/other", EVENT_METHODS, signals + 1, properties + 1, mError.get()));
}

TEST_F(Registration, AttachingTwiceIsRefused) {
    attachService();
    EXPECT_FALSE(HubGmainAttach(mHandle, mLoop, mError.get()));
    EXPECT_EQ(mError.code(), HUB_ERROR_INVALID);
    EXPECT_EQ(call("echo", "text").text, "text");
}

TEST_F(Registration, LoopOfAnotherContextIsRefused) {
    registerService();
    const lectern::GLibHolder<GMainContext> context(g_main_context_new());
    GMainLoop* loop = g_main_loop_new(context.get(), FALSE);
    EXPECT_FALSE(HubGmainAttach(mHandle, loop, mError.get()));
    EXPECT_EQ(mError.code(), HUB_ERROR_INVALID);
    g_main_loop_unref(loop);
    EXPECT_FALSE(HubGmainAttach(mHandle, nullptr, mError.get()));
    EXPECT_FALSE(HubGmainAttach(nullptr, mLoop, mError.get()));
}

} // namespace
