// SPDX-License-Identifier: Apache-2.0
// docs/bus.md compared with the method tables and with the methods' replies.
#include "tests/guides/BusGuide.h"

#include "ServiceTest.h"
#include "service/BusCall.h"
#include "tests/guides/Markdown.h"

#include <set>

namespace {

std::string paramFailed(const std::string& text) {
    return formatErrorJsonObject(PARAM_FAILED, text.c_str());
}

// A payload of all these parameters except one. The values are valid for every
// kind and name a document that does not exist.
std::string payloadWithout(const std::vector<std::string>& parameters, size_t left) {
    std::string members;
    for (size_t i = 0; i < parameters.size(); ++i) {
        if (i != left) {
            members += (members.empty() ? "\"" : ", \"") + parameters[i] + "\": \"77\"";
        }
    }
    return "{" + members + "}";
}

class BusGuideTest : public ServiceTest {};

TEST_F(BusGuideTest, NamesTheMethodsOfTheTablesInTheirOrder) {
    for (const auto& [category, methods] : fakeHub.categories) {
        std::vector<std::string> inTable;
        for (const HubMethod* method = methods; method->name != nullptr; ++method) {
            inTable.emplace_back(method->name);
        }
        std::vector<std::string> inGuide;
        for (const GuideMethod& method : busGuide()) {
            if (method.category == category) {
                inGuide.push_back(method.name);
            }
        }
        EXPECT_EQ(inGuide, inTable) << category;
    }
    std::set<std::string> categories;
    for (const GuideMethod& method : busGuide()) {
        categories.insert(method.category);
    }
    EXPECT_EQ(categories, (std::set<std::string>{"/common", "/events", "/excel", "/ppt", "/touch", "/word"}));
}

TEST_F(BusGuideTest, NamesEveryRequiredParameterAndTheTextForIt) {
    int checked = 0;
    for (const GuideMethod& method : busGuide()) {
        for (size_t left = 0; left < method.required.size(); ++left) {
            EXPECT_EQ(call(method.category, method.name, payloadWithout(method.required, left)),
                      paramFailed(method.missingText(left)))
                << method.name << " without " << method.required[left];
            ++checked;
        }
    }
    EXPECT_GT(checked, 50);
}

TEST_F(BusGuideTest, NamesTheParametersInTheOrderOfTheChecks) {
    for (const GuideMethod& method : busGuide()) {
        if (!method.required.empty()) {
            EXPECT_EQ(call(method.category, method.name, "{}"), paramFailed(method.missingText(0)))
                << method.name;
        }
    }
}

TEST_F(BusGuideTest, NothingMoreIsRequired) {
    for (const GuideMethod& method : busGuide()) {
        const size_t none = method.required.size();
        const auto reply = call(method.category, method.name, payloadWithout(method.required, none));
        EXPECT_EQ(reply.value_or("").find(PARAM_FAILED), std::string::npos) << method.name << *reply;
        EXPECT_EQ(reply.has_value(), !method.reply.empty()) << method.name;
    }
}

TEST_F(BusGuideTest, TellsWhetherThePaintIsAskedForBeforeTheReplyOrAfterIt) {
    for (const GuideMethod& method : busGuide()) {
        if (method.category != "/common" && method.category != "/events") {
            continue; // the other categories need views of their kinds
        }
        if (method.name == "create" || method.reply.empty()) {
            continue;
        }
        addView();
        traceMessages();
        std::string order;
        for (const std::string& step : traceOf(method.category, method.name,
                                               R"({"docid": 0, "search": "x", "xCoord": 1, "yCoord": 1,)"
                                               R"( "chr": 1, "modifiers": 1})")) {
            order += step == "message 0" ? "paint " : step.rfind("reply", 0) == 0 ? "reply " : "";
        }
        const std::string expected = method.paint == "before"  ? "paint reply "
                                     : method.paint == "after" ? "reply paint "
                                                               : "reply ";
        EXPECT_EQ(order, expected) << method.name;
        gDocuments.clear();
    }
}

TEST_F(BusGuideTest, NamesEveryErrorAndItsTexts) {
    const std::string guide = markdown::read("docs/bus.md") + markdown::read("docs/touch.md");
    const std::set<std::pair<std::string, std::string>> errors = {
        {PARAM_FAILED, NO_PARAMETER},
        {PARAM_FAILED, NO_DOCID},
        {PARAM_FAILED, "failed to get search query"},
        {PARAM_FAILED, "failed to get slide number"},
        {DOES_NOT_EXIST, "Document does not exist"},
        {WRONG_TYPE, "Not an Excel document"},
        {WRONG_TYPE, "Not a PowerPoint document"},
        {DOC_TYPE, "doctype is unkown"},
        {WRONG_TYPE, "Not a touch view"},
        {OUT_OF_RANGE, OUT_OF_RANGE_TEXT},
        {"errNothingThere", "nothing there"},
        {"errNotSupported", "not supported for this document"},
        {"errNotWritable", "the file cannot be written"},
        {NOT_OPEN, NOT_OPEN_TEXT},
        {"errFailed", "the document could not do it"}};
    std::set<std::pair<std::string, std::string>> inGuide;
    for (const markdown::Table& table : markdown::tables(guide)) {
        if (table.columns.at(0) == "errorCode") {
            for (const markdown::Row& row : table.rows) {
                for (const std::string& text : markdown::codes(row.at(1))) {
                    inGuide.emplace(markdown::codes(row.at(0)).at(0), text);
                }
            }
        }
    }
    EXPECT_EQ(inGuide, errors);
}

} // namespace
