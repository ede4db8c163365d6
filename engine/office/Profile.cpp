// SPDX-License-Identifier: Apache-2.0
#include "engine/office/Profile.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace lectern::engine {

namespace {

struct Setting {
    const char* path;
    const char* name;
    const char* value;
};

// A kind of document's side bar, which has the number 10336.
#define SIDE_BAR(kind) "Office.Views/Windows/org.openoffice.Office.Views:WindowType['" kind "/10336']"

#define COLOUR_SCHEME                                                                                        \
    "Office.UI/ColorScheme/ColorSchemes/org.openoffice.Office.UI:ColorScheme['LibreOffice']/"

constexpr Setting SETTINGS[] = {
    // No lock files beside documents. With another program's lock file the suite
    // would open the document read-only and silently ignore changes of its layout.
    {"Office.Common/Misc", "UseLocking", "false"},
    {"Office.Common/Misc", "UseDocumentOOoLockFile", "false"},
    {"Office.Common/Misc", "UseDocumentSystemFileLocking", "false"},
    // Macros never run, and nothing that a document links to is fetched.
    {"Office.Common/Security/Scripting", "MacroSecurityLevel", "3"},
    {"Office.Common/Security/Scripting", "DisableMacrosExecution", "true"},
    {"Office.Common/Security/Scripting", "BlockUntrustedRefererLinks", "true"},
    {"Office.Writer/Content/Update", "Link", "0"},
    {"Office.Calc/Content/Update", "Link", "2"},
    // Documents inside of documents stay pictures. Converting them, so that they
    // could be edited, takes long and can crash.
    {"Office.Common/Filter/Microsoft/Import", "ExcelToCalc", "false"},
    {"Office.Common/Filter/Microsoft/Import", "WinWordToWriter", "false"},
    {"Office.Common/Filter/Microsoft/Import", "PowerPointToImpress", "false"},
    {"Office.Common/Filter/Microsoft/Import", "MathTypeToMath", "false"},
    // Helps for editing: shaded tables of contents and fields, lines around the
    // cells of tables without borders, around sections, frames and the text.
    {COLOUR_SCHEME "WriterIdxShadings", "IsVisible", "false"},
    {COLOUR_SCHEME "WriterFieldShadings", "IsVisible", "false"},
    {COLOUR_SCHEME "WriterSectionBoundaries", "IsVisible", "false"},
    {COLOUR_SCHEME "TableBoundaries", "IsVisible", "false"},
    {COLOUR_SCHEME "ObjectBoundaries", "IsVisible", "false"},
    {COLOUR_SCHEME "DocBoundaries", "IsVisible", "false"},
    // The shadow that a page casts on a desk shows in the page's corners.
    {COLOUR_SCHEME "Shadow", "IsVisible", "false"},
    // Words that a dictionary lacks are not underlined.
    {"Office.Linguistic/SpellChecking", "IsSpellAuto", "false"},
    // Nor are the words collected that a person could type again.
    {"Office.Writer/AutoFunction/Completion", "CollectWords", "false"},
    // No side bar beside the document. Nobody sees it, and setting up its controls
    // takes 25 ms.
    {SIDE_BAR("swriter"), "Visible", "false"},
    {SIDE_BAR("scalc"), "Visible", "false"},
    {SIDE_BAR("simpress"), "Visible", "false"},
    // Nothing is saved for a next session, because there is none.
    {"Office.Recovery/AutoSave", "Enabled", "false"},
    {"Office.Recovery/RecoveryInfo", "Enabled", "false"},
    {"Office.Common/History", "PickListSize", "0"},
    {"Office.Common/Misc", "CrashReport", "false"},
    // No first-start greeting and no test of the graphics hardware. The suite
    // runs that test when its version is newer than the last one started, and
    // it takes as long as the rest of the start.
    {"Setup/Product", "ooSetupLastVersion", "999.0"},
    {"Setup/Office", "ooSetupInstCompleted", "true"},
    {"Office.Common/Misc", "FirstRun", "false"},
    {"Office.Common/Misc", "ShowTipOfTheDay", "false"},
};

void writeSetting(std::ostream& out, const Setting& setting) {
    out << "<item oor:path=\"/org.openoffice." << setting.path << "\"><prop oor:name=\"" << setting.name
        << "\" oor:op=\"fuse\"><value>" << setting.value << "</value></prop></item>\n";
}

} // namespace

bool writeProfile(const std::string& directory) {
    const std::filesystem::path data = std::filesystem::path(directory) / "registry" / "data";
    std::error_code error;
    std::filesystem::create_directories(data, error);
    std::ofstream out(data / "lectern.xcu", std::ios::trunc);
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<oor:items xmlns:oor=\"http://openoffice.org/2001/registry\""
           " xmlns:xs=\"http://www.w3.org/2001/XMLSchema\""
           " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">\n";
    for (const Setting& setting : SETTINGS) {
        writeSetting(out, setting);
    }
    out << "</oor:items>\n";
    out.close();
    if (!out) {
        std::fprintf(stderr, "cannot write the office profile in %s\n", directory.c_str());
        return false;
    }
    return true;
}

} // namespace lectern::engine
