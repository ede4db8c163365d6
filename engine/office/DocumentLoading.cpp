// SPDX-License-Identifier: Apache-2.0
#include "engine/office/DocumentLoading.h"

#include "engine/layout/CompoundFile.h"
#include "engine/layout/TextEncoding.h"
#include "engine/office/FileUrl.h"
#include "engine/office/LoadGuard.h"
#include "engine/office/TemporaryCopy.h"
#include "modules/ModuleResults.h"

#include <LibreOfficeKit/LibreOfficeKitEnums.h>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <strings.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string_view>
#include <vector>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;

namespace {

// Without Batch a damaged file may open a dialog that nobody can close. The
// other two options repeat settings of the profile, which a load would
// otherwise reset.
constexpr char LOAD_OPTIONS[] = "Batch=true,MacroSecurityLevel=3,EnableMacrosExecution=false";

// Answers the suite's password requests during a load. The suite asks again
// after a wrong password; the second request ends the load. Passes its progress on.
class PasswordPrompt {
public:
    PasswordPrompt(lok::Office& suite, const std::string& url, const std::string& password,
                   const LoadProgress& progress)
        : mSuite(suite), mUrl(url), mPassword(password), mProgress(progress) {
        mSuite.registerCallback(&PasswordPrompt::onEvent, this);
    }
    ~PasswordPrompt() { mSuite.registerCallback(nullptr, nullptr); }
    PasswordPrompt(const PasswordPrompt&) = delete;
    PasswordPrompt& operator=(const PasswordPrompt&) = delete;

    bool asked() const { return mQuestions > 0; }

private:
    static void onEvent(int type, const char* payload, void* self) {
        auto& prompt = *static_cast<PasswordPrompt*>(self);
        if (type == LOK_CALLBACK_STATUS_INDICATOR_SET_VALUE && prompt.mProgress && payload != nullptr) {
            prompt.mProgress(static_cast<int32_t>(std::strtol(payload, nullptr, 10)));
        }
        prompt.answer(type);
    }

    // The suite looks the answer up by the URL of the load. The callback's payload
    // cannot be used instead: for some formats it is only the file's name.
    void answer(int type) {
        if (type == LOK_CALLBACK_DOCUMENT_PASSWORD) {
            const bool firstTime = mQuestions++ == 0;
            mSuite.setDocumentPassword(mUrl.c_str(),
                                       firstTime && !mPassword.empty() ? mPassword.c_str() : nullptr);
        } else if (type == LOK_CALLBACK_DOCUMENT_PASSWORD_TO_MODIFY) {
            mSuite.setDocumentPassword(mUrl.c_str(), "");
        }
    }

    lok::Office& mSuite;
    const std::string& mUrl;
    const std::string& mPassword;
    const LoadProgress& mProgress;
    int mQuestions = 0;
};

// A UTF-8 copy of a plain-text file in another encoding; null for other files.
std::unique_ptr<TemporaryCopy> utf8Copy(const std::string& path, const std::string& directory) {
    if (strcasecmp(extensionOf(path).c_str(), ".txt") != 0) {
        return nullptr;
    }
    const std::string bytes = bytesOf(path);
    const TextEncoding encoding = detectTextEncoding(bytes);
    return encoding == TextEncoding::Utf8
               ? nullptr
               : std::make_unique<TemporaryCopy>(directory, ".txt", toUtf8(bytes, encoding));
}

// A copy of a compound file without the streams for which the suite refuses it;
// null when there is no such stream.
std::unique_ptr<TemporaryCopy> repairedCopy(const std::string& path, const std::string& directory) {
    std::string bytes = bytesOf(path);
    return emptyImpossibleStreams(bytes)
               ? std::make_unique<TemporaryCopy>(directory, extensionOf(path), bytes)
               : nullptr;
}

std::vector<Reference<css::frame::XModel>> openModels(const Office::Private& office) {
    std::vector<Reference<css::frame::XModel>> models;
    const auto components = css::frame::Desktop::create(office.context)->getComponents();
    const auto all = components->createEnumeration();
    while (all->hasMoreElements()) {
        if (Reference<css::frame::XModel> model(all->nextElement(), UNO_QUERY); model.is()) {
            models.push_back(model);
        }
    }
    return models;
}

// The open model that is not in `before`; null when there is none.
Reference<css::frame::XModel> newModel(const Office::Private& office,
                                       const std::vector<Reference<css::frame::XModel>>& before) {
    for (const auto& model : openModels(office)) {
        if (std::find(before.begin(), before.end(), model) == before.end()) {
            return model;
        }
    }
    return {};
}

// The suite reads a file that it cannot identify as plain text. That is accepted
// for plain text with the extension .doc, but not for a damaged container.
bool isBrokenContainer(const Reference<css::frame::XModel>& model, const std::string& path) {
    constexpr std::string_view COMPOUND = "\xD0\xCF\x11\xE0", ZIP = "PK\x03\x04";
    std::string head(4, '\0');
    std::ifstream(path, std::ios::binary).read(head.data(), static_cast<std::streamsize>(head.size()));
    return isReadAsText(model) && (head == COMPOUND || head == ZIP);
}

int32_t load(const Office::Private& office, const std::string& url, const std::string& language,
             LoadedModel& loaded) {
    const auto before = openModels(office);
    const LoadGuard guard(office.context);
    const std::string options = language.empty() ? LOAD_OPTIONS : LOAD_OPTIONS + (",Language=" + language);
    std::unique_ptr<lok::Document> painter(office.suite->documentLoad(url.c_str(), options.c_str()));
    if (!painter) {
        return MODULE_DAMAGED;
    }
    loaded = {std::move(painter), newModel(office, before)};
    if (!loaded.model.is()) {
        return MODULE_FAILED;
    }
    forgetReload(loaded.model);
    return guard.hasRefused() ? MODULE_TOO_COMPLEX : MODULE_OK;
}

// Loads a document from its file, or from a copy of it.
int32_t loadFrom(const std::string& source, Office::Private& office, const std::string& path,
                 const std::string& password, const std::string& language, const LoadProgress& progress,
                 LoadedModel& loaded) {
    const std::string url = fileUrl(source);
    const PasswordPrompt prompt(*office.suite, url, password, progress);
    const int32_t result = load(office, url, language, loaded);
    if (result == MODULE_DAMAGED && prompt.asked()) {
        return password.empty() ? MODULE_NEEDS_PASSWORD : MODULE_WRONG_PASSWORD;
    }
    return result == MODULE_OK && isBrokenContainer(loaded.model, path) ? int32_t{MODULE_DAMAGED} : result;
}

} // namespace

bool isReadAsText(const Reference<css::frame::XModel>& model) {
    const css::uno::Sequence<css::beans::PropertyValue> arguments = model->getArgs();
    return std::any_of(arguments.begin(), arguments.end(), [](const auto& argument) {
        OUString filter;
        return argument.Name == "FilterName" && (argument.Value >>= filter) && filter.startsWith("Text");
    });
}

int32_t openAsText(LoadedModel loaded, OpenedDocument& opened) {
    const Reference<css::text::XTextDocument> text(loaded.model, UNO_QUERY);
    if (!text.is()) {
        return MODULE_WRONG_KIND;
    }
    loaded.model->lockControllers();
    loaded.painter->initializeForRendering("{}");
    opened = {std::move(loaded.painter), text};
    return MODULE_OK;
}

int32_t loadModel(Office::Private& office, const std::string& path, const std::string& password,
                  const std::string& temporaryDirectory, LoadedModel& model, const std::string& language,
                  const LoadProgress& progress) {
    const auto text = utf8Copy(path, temporaryDirectory);
    LoadedModel loaded;
    // Without a copy the suite reads the original as it is.
    const std::string& source = text && !text->path().empty() ? text->path() : path;
    int32_t result = loadFrom(source, office, path, password, language, progress, loaded);
    if (result == MODULE_DAMAGED) {
        const auto repaired = repairedCopy(path, temporaryDirectory);
        if (repaired && !repaired->path().empty()) {
            result = loadFrom(repaired->path(), office, path, password, language, progress, loaded);
        }
    }
    if (result == MODULE_OK) {
        model = std::move(loaded);
    }
    return result;
}

int32_t loadDocument(Office::Private& office, const std::string& path, const std::string& password,
                     const std::string& temporaryDirectory, OpenedDocument& opened) {
    LoadedModel loaded;
    const int32_t result = loadModel(office, path, password, temporaryDirectory, loaded);
    return result == MODULE_OK ? openAsText(std::move(loaded), opened) : result;
}

int32_t newDocument(Office::Private& office, OpenedDocument& opened) {
    LoadedModel loaded;
    const int32_t result = load(office, "private:factory/swriter", "", loaded);
    return result == MODULE_OK ? openAsText(std::move(loaded), opened) : result;
}

} // namespace lectern::engine
