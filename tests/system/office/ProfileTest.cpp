// SPDX-License-Identifier: Apache-2.0
// The settings with which the suite was started, as the suite reads them.
#include "engine/office/OfficePrivate.h"
#include "tests/system/office/OfficeFixture.h"

#include <com/sun/star/configuration/ReadOnlyAccess.hpp>

namespace lectern::engine::test {
namespace {

class Settings : public OfficeTest {
protected:
    static bool isOn(const std::string& path) {
        const auto settings = css::configuration::ReadOnlyAccess::create(office().d().context, "*");
        return settings->getByHierarchicalName(OUString::createFromAscii(path.c_str())).get<bool>();
    }
};

TEST_F(Settings, DocumentsInsideOfDocumentsAreNotConverted) {
    for (const char* from : {"ExcelToCalc", "WinWordToWriter", "PowerPointToImpress", "MathTypeToMath"}) {
        EXPECT_FALSE(isOn(std::string("/org.openoffice.Office.Common/Filter/Microsoft/Import/") + from))
            << from;
    }
    EXPECT_TRUE(isOn("/org.openoffice.Office.Common/Filter/Microsoft/Export/CalcToExcel"))
        << "an untouched setting has the suite's value";
}

TEST_F(Settings, NothingIsDoneForTyping) {
    EXPECT_FALSE(isOn("/org.openoffice.Office.Writer/AutoFunction/Completion/CollectWords"));
    EXPECT_FALSE(isOn("/org.openoffice.Office.Linguistic/SpellChecking/IsSpellAuto"));
}

TEST_F(Settings, OfWorkbooksAreAsBeforeWhenTheSuiteHasPrepared) {
    while (office().prepareNext()) {
    }
    EXPECT_FALSE(office().prepareNext()) << "nothing is left";
    const css::uno::Reference<css::beans::XPropertySet> workbooks(
        office().d().context->getServiceManager()->createInstanceWithContext(
            "com.sun.star.sheet.GlobalSheetSettings", office().d().context),
        css::uno::UNO_QUERY_THROW);
    EXPECT_FALSE(workbooks->getPropertyValue("UsePrinterMetrics").get<bool>())
        << "columns of the next workbook would have other widths";
}

} // namespace
} // namespace lectern::engine::test
