// SPDX-License-Identifier: Apache-2.0
#include "engine/office/FileUrl.h"
#include "engine/office/OfficePrivate.h"
#include "modules/ModuleResults.h"
#include "tests/system/office/OfficeFixture.h"

#include <com/sun/star/beans/NamedValue.hpp>
#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/util/XCloseable.hpp>

namespace lectern::engine::test {

namespace {

using Options = css::uno::Sequence<css::beans::PropertyValue>;

void add(Options& options, const char* name, const css::uno::Any& value) {
    options.realloc(options.getLength() + 1);
    css::beans::PropertyValue& option = options[options.getLength() - 1];
    option.Name = OUString::createFromAscii(name);
    option.Value = value;
}

OUString unicode(const std::string& text) {
    return OStringToOUString(rtl::OString(text.c_str()), RTL_TEXTENCODING_UTF8);
}

class Password : public OfficeTest {
public:
    // A text document with the password "let me in", saved by the suite's own filter.
    static std::filesystem::path protectedFile(const std::string& name, const char* filter) {
        const auto desktop = css::frame::Desktop::create(office().d().context);
        const auto source = write("plain.txt", "protected words");
        Options loading;
        add(loading, "Hidden", css::uno::Any(true));
        const css::uno::Reference<css::lang::XComponent> component =
            desktop->loadComponentFromURL(unicode(fileUrl(source)), "_blank", 0, loading);
        const css::uno::Reference<css::frame::XStorable> storable(component, css::uno::UNO_QUERY_THROW);
        Options storing;
        add(storing, "FilterName", css::uno::Any(OUString::createFromAscii(filter)));
        add(storing, "Password", css::uno::Any(OUString("let me in")));
        css::uno::Sequence<css::beans::NamedValue> keys(2);
        keys[0].Name = "OOXPassword";
        keys[0].Value <<= OUString("let me in");
        keys[1].Name = "CryptoType";
        keys[1].Value <<= OUString("Standard");
        add(storing, "EncryptionData", css::uno::Any(keys));
        const std::filesystem::path path = testFolder() / name;
        storable->storeToURL(unicode(fileUrl(path)), storing);
        css::uno::Reference<css::util::XCloseable>(component, css::uno::UNO_QUERY_THROW)->close(true);
        return path;
    }

    static void expectProtection(const std::filesystem::path& path) {
        EXPECT_EQ(openResult(path), MODULE_NEEDS_PASSWORD);
        EXPECT_EQ(openResult(path, "let me out"), MODULE_WRONG_PASSWORD);
        EXPECT_EQ(openResult(path, "let me in"), MODULE_OK);
        EXPECT_EQ(openResult(path), MODULE_NEEDS_PASSWORD);
    }
};

} // namespace

TEST_F(Password, IsAskedForAndCheckedForDocx) {
    expectProtection(protectedFile("protected.docx", "MS Word 2007 XML"));
}

TEST_F(Password, IsAskedForAndCheckedForDoc) {
    expectProtection(protectedFile("protected.doc", "MS Word 97"));
}

TEST_F(Password, WorksInFoldersWithOddNames) {
    std::filesystem::create_directories(testFolder() / "100% odd #1");
    expectProtection(protectedFile("100% odd #1/\xC3\xA9.doc", "MS Word 97"));
}

TEST_F(Password, IsIgnoredByADocumentWithoutOne) {
    EXPECT_EQ(openResult(write("open.txt", "open"), "any"), MODULE_OK);
}

} // namespace lectern::engine::test
