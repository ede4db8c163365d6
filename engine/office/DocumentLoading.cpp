// SPDX-License-Identifier: Apache-2.0
#include "engine/office/DocumentLoading.h"

#include "engine/layout/TextEncoding.h"
#include "engine/office/FileUrl.h"
#include "modules/ModuleResults.h"

#include <LibreOfficeKit/LibreOfficeKitEnums.h>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <strings.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
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
// after a wrong password; the second request ends the load.
class PasswordPrompt {
public:
    PasswordPrompt(lok::Office& suite, const std::string& url, const std::string& password)
        : mSuite(suite), mUrl(url), mPassword(password) {
        mSuite.registerCallback(&PasswordPrompt::onEvent, this);
    }
    ~PasswordPrompt() { mSuite.registerCallback(nullptr, nullptr); }
    PasswordPrompt(const PasswordPrompt&) = delete;
    PasswordPrompt& operator=(const PasswordPrompt&) = delete;

    bool asked() const { return mQuestions > 0; }

private:
    static void onEvent(int type, const char* /*payload*/, void* self) {
        static_cast<PasswordPrompt*>(self)->answer(type);
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
    int mQuestions = 0;
};

// A temporary UTF-8 copy of a plain-text file in another encoding; not made for
// other files. The destructor removes the copy.
class Utf8Copy {
public:
    Utf8Copy(const std::string& path, const std::string& directory) {
        if (path.size() < 4 || strcasecmp(path.c_str() + path.size() - 4, ".txt") != 0) {
            return;
        }
        std::ifstream in(path, std::ios::binary);
        std::ostringstream contents;
        contents << in.rdbuf();
        const std::string bytes = std::move(contents).str();
        const TextEncoding encoding = detectTextEncoding(bytes);
        if (encoding != TextEncoding::Utf8) {
            write(directory + "/lectern-XXXXXX.txt", toUtf8(bytes, encoding));
        }
    }
    ~Utf8Copy() {
        if (!mPath.empty()) {
            unlink(mPath.c_str());
        }
    }
    Utf8Copy(const Utf8Copy&) = delete;
    Utf8Copy& operator=(const Utf8Copy&) = delete;

    // Empty when no copy is needed or none could be written. In the second case
    // the suite reads the original as it is.
    const std::string& path() const { return mPath; }

private:
    void write(std::string name, const std::string& text) {
        const int fd = mkstemps(name.data(), 4);
        if (fd < 0) {
            return;
        }
        close(fd);
        mPath = std::move(name);
        std::ofstream out(mPath, std::ios::binary | std::ios::trunc);
        out << text;
    }

    std::string mPath;
};

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
    const css::uno::Sequence<css::beans::PropertyValue> arguments = model->getArgs();
    const bool readAsText = std::any_of(arguments.begin(), arguments.end(), [](const auto& argument) {
        OUString filter;
        return argument.Name == "FilterName" && (argument.Value >>= filter) && filter.startsWith("Text");
    });
    constexpr std::string_view COMPOUND = "\xD0\xCF\x11\xE0", ZIP = "PK\x03\x04";
    std::string head(4, '\0');
    std::ifstream(path, std::ios::binary).read(head.data(), static_cast<std::streamsize>(head.size()));
    return readAsText && (head == COMPOUND || head == ZIP);
}

int32_t load(const Office::Private& office, const std::string& url, LoadedModel& loaded) {
    const auto before = openModels(office);
    std::unique_ptr<lok::Document> painter(office.suite->documentLoad(url.c_str(), LOAD_OPTIONS));
    if (!painter) {
        return MODULE_DAMAGED;
    }
    loaded = {std::move(painter), newModel(office, before)};
    return loaded.model.is() ? MODULE_OK : MODULE_FAILED;
}

// Fills `opened` if the loaded model is a text document; otherwise returns
// MODULE_WRONG_KIND.
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

} // namespace

int32_t loadModel(Office::Private& office, const std::string& path, const std::string& password,
                  const std::string& temporaryDirectory, LoadedModel& model) {
    const Utf8Copy copy(path, temporaryDirectory);
    const std::string url = fileUrl(copy.path().empty() ? path : copy.path());
    const PasswordPrompt prompt(*office.suite, url, password);
    LoadedModel loaded;
    const int32_t result = load(office, url, loaded);
    if (result == MODULE_DAMAGED && prompt.asked()) {
        return password.empty() ? MODULE_NEEDS_PASSWORD : MODULE_WRONG_PASSWORD;
    }
    if (result != MODULE_OK) {
        return result;
    }
    if (isBrokenContainer(loaded.model, path)) {
        return MODULE_DAMAGED;
    }
    model = std::move(loaded);
    return MODULE_OK;
}

int32_t loadDocument(Office::Private& office, const std::string& path, const std::string& password,
                     const std::string& temporaryDirectory, OpenedDocument& opened) {
    LoadedModel loaded;
    const int32_t result = loadModel(office, path, password, temporaryDirectory, loaded);
    return result == MODULE_OK ? openAsText(std::move(loaded), opened) : result;
}

int32_t newDocument(Office::Private& office, OpenedDocument& opened) {
    LoadedModel loaded;
    const int32_t result = load(office, "private:factory/swriter", loaded);
    return result == MODULE_OK ? openAsText(std::move(loaded), opened) : result;
}

} // namespace lectern::engine
