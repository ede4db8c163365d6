// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/Settings.h"

#include "client/viewer/Shell.h"

#include <filesystem>

namespace lectern::viewer {

namespace {

struct SchemaRelease {
    void operator()(GSettingsSchema* schema) const { g_settings_schema_unref(schema); }
    void operator()(GSettingsSchemaSource* source) const { g_settings_schema_source_unref(source); }
};

} // namespace

std::string dataFolder() {
    std::error_code failure;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", failure);
    return program.parent_path().parent_path() / "share";
}

GLibHolder<GSettings> newSettings() {
    const std::string folder = dataFolder() + "/glib-2.0/schemas";
    GSettingsSchemaSource* usual = g_settings_schema_source_get_default();
    const std::unique_ptr<GSettingsSchemaSource, SchemaRelease> own(
        g_settings_schema_source_new_from_directory(folder.c_str(), usual, FALSE, nullptr));
    const std::unique_ptr<GSettingsSchema, SchemaRelease> schema(
        g_settings_schema_source_lookup(own ? own.get() : usual, APPLICATION_ID, TRUE));
    if (!schema) {
        g_error("the schema %s is not installed", APPLICATION_ID);
    }
    return GLibHolder<GSettings>(g_settings_new_full(schema.get(), nullptr, nullptr));
}

} // namespace lectern::viewer
