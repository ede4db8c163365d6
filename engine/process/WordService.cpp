// SPDX-License-Identifier: Apache-2.0
#include "engine/process/WordService.h"

#include "engine/protocol/FileDescriptor.h"
#include "engine/protocol/Guarded.h"
#include "engine/protocol/Inherited.h"
#include "modules/ModuleResults.h"

#include <EngineProtocol.h>
#include <gio/gio.h>
#include <gio/gunixfdlist.h>

#include <utility>

namespace lectern::engine {
namespace {

using Invocation = GDBusMethodInvocation;

WordService& serviceOf(gpointer user) {
    return *static_cast<WordService*>(user);
}

// Runs an operation on the open document.
template<class Operation>
std::int32_t onDocument(WordService& service, Operation operation) {
    WordDocument* document = service.document();
    return document == nullptr ? MODULE_FAILED : guarded([&] { return operation(*document); });
}

// One handler for every operation without inputs that gives one number.
template<auto Operation, auto Complete, class Number>
gboolean handleNumber(LecternIpcWord* word, Invocation* invocation, gpointer user) {
    Number value = 0;
    const std::int32_t result =
        onDocument(serviceOf(user), [&](WordDocument& document) { return (document.*Operation)(value); });
    Complete(word, invocation, result, serviceOf(user).takePainted(), value);
    return TRUE;
}

template<auto Operation, auto Complete>
gboolean handleText(LecternIpcWord* word, Invocation* invocation, gpointer user) {
    std::u16string text;
    const std::int32_t result =
        onDocument(serviceOf(user), [&](WordDocument& document) { return (document.*Operation)(text); });
    Complete(word, invocation, result, serviceOf(user).takePainted(),
             g_variant_new_fixed_array(G_VARIANT_TYPE_UINT16, text.data(), text.size(), sizeof(char16_t)));
    return TRUE;
}

template<auto Operation, auto Complete>
gboolean handleScroll(LecternIpcWord* word, Invocation* invocation, gint rows, gpointer user) {
    std::int32_t scrolled = 0;
    const std::int32_t result = onDocument(
        serviceOf(user), [&](WordDocument& document) { return (document.*Operation)(rows, scrolled); });
    Complete(word, invocation, result, serviceOf(user).takePainted(), scrolled);
    return TRUE;
}

gboolean handleOpen(LecternIpcWord* word, Invocation* invocation, const gchar* path, const gchar* password,
                    gpointer user) {
    const std::int32_t result = serviceOf(user).open(path, password);
    lectern_ipc_word_complete_open(word, invocation, result, serviceOf(user).takePainted());
    return TRUE;
}

gboolean handleSetSurface(LecternIpcWord* word, Invocation* invocation, GUnixFDList* files, GVariant* memory,
                          gint width, gint height, gpointer user) {
    const FileDescriptor file(
        files == nullptr ? -1 : g_unix_fd_list_get(files, g_variant_get_handle(memory), nullptr));
    const std::int32_t result = serviceOf(user).setSurface(file.get(), width, height);
    lectern_ipc_word_complete_set_surface(word, invocation, nullptr, result, serviceOf(user).takePainted());
    return TRUE;
}

gboolean handleSetDpi(LecternIpcWord* word, Invocation* invocation, gint dpi, gpointer user) {
    const std::int32_t result =
        onDocument(serviceOf(user), [&](WordDocument& document) { return document.setDpi(dpi); });
    lectern_ipc_word_complete_set_dpi(word, invocation, result, serviceOf(user).takePainted());
    return TRUE;
}

gboolean handleJump(LecternIpcWord* word, Invocation* invocation, gint story, guint position, gpointer user) {
    const std::int32_t result = onDocument(
        serviceOf(user), [&](WordDocument& document) { return document.jumpToCharacter(story, position); });
    lectern_ipc_word_complete_jump_to_character(word, invocation, result, serviceOf(user).takePainted());
    return TRUE;
}

gboolean handleLayoutSize(LecternIpcWord* word, Invocation* invocation, gpointer user) {
    std::int32_t width = 0;
    std::int32_t height = 0;
    const std::int32_t result = onDocument(
        serviceOf(user), [&](WordDocument& document) { return document.layoutSize(width, height); });
    lectern_ipc_word_complete_layout_size(word, invocation, result, serviceOf(user).takePainted(), width,
                                          height);
    return TRUE;
}

void connectHandlers(LecternIpcWord* word, WordService* service) {
    const auto connect = [&](const char* signal, auto* handler) {
        g_signal_connect(word, signal, G_CALLBACK(handler), service);
    };
    using Document = WordDocument;
    connect("handle-open", &handleOpen);
    connect("handle-set-surface", &handleSetSurface);
    connect("handle-set-dpi", &handleSetDpi);
    connect("handle-jump-to-character", &handleJump);
    connect("handle-layout-size", &handleLayoutSize);
    connect("handle-scroll-down",
            &handleScroll<&Document::scrollDown, &lectern_ipc_word_complete_scroll_down>);
    connect("handle-scroll-up", &handleScroll<&Document::scrollUp, &lectern_ipc_word_complete_scroll_up>);
    connect(
        "handle-character-count",
        &handleNumber<&Document::characterCount, &lectern_ipc_word_complete_character_count, std::uint32_t>);
    connect("handle-top-left-character",
            &handleNumber<&Document::topLeftCharacter, &lectern_ipc_word_complete_top_left_character,
                          std::uint32_t>);
    connect("handle-bottom-right-character",
            &handleNumber<&Document::bottomRightCharacter, &lectern_ipc_word_complete_bottom_right_character,
                          std::uint32_t>);
    connect("handle-vertical-last-used-pixel",
            &handleNumber<&Document::verticalLastUsedPixel,
                          &lectern_ipc_word_complete_vertical_last_used_pixel, std::int32_t>);
    connect("handle-word-count",
            &handleNumber<&Document::wordCount, &lectern_ipc_word_complete_word_count, std::int32_t>);
    connect("handle-creation-date",
            &handleNumber<&Document::creationDate, &lectern_ipc_word_complete_creation_date, std::int64_t>);
    connect(
        "handle-last-saved-date",
        &handleNumber<&Document::lastSavedDate, &lectern_ipc_word_complete_last_saved_date, std::int64_t>);
    connect("handle-name", &handleText<&Document::name, &lectern_ipc_word_complete_name>);
    connect("handle-author", &handleText<&Document::author, &lectern_ipc_word_complete_author>);
    connect("handle-description",
            &handleText<&Document::description, &lectern_ipc_word_complete_description>);
}

} // namespace

WordService::WordService() : mSkeleton(lectern_ipc_word_skeleton_new()) {
    connectHandlers(mSkeleton, this);
}

WordService::~WordService() {
    g_object_unref(mSkeleton);
}

void WordService::useOffice(Office* office, const std::string& folder) {
    mOffice = office;
    mFolder = folder;
}

bool WordService::exportOn(GDBusConnection* connection) {
    return g_dbus_interface_skeleton_export(G_DBUS_INTERFACE_SKELETON(mSkeleton), connection, kWordPath,
                                            nullptr) != FALSE;
}

std::int32_t WordService::open(const std::string& path, const std::string& password) {
    if (mOffice == nullptr || mDocument) {
        return MODULE_FAILED;
    }
    return guarded([&] { return WordDocument::open(*mOffice, path, password, mFolder, mDocument); });
}

std::int32_t WordService::setSurface(int memory, std::int32_t width, std::int32_t height) {
    std::optional<MappedSurface> surface = MappedSurface::map(memory, width, height);
    if (!surface) {
        return MODULE_BAD_ARGUMENT;
    }
    const std::int32_t result = onDocument(
        *this, [&](WordDocument& document) { return document.setSurface(surface->pixels(), width, height); });
    if (result == MODULE_OK) {
        mSurface = std::move(surface);
    }
    return result;
}

} // namespace lectern::engine
