// SPDX-License-Identifier: Apache-2.0
#include "client/viewer/History.h"

#include "base/GLibHolder.h"

#include <glib/gstdio.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace lectern::viewer {

namespace {

constexpr const char* OPENED = "opened";
constexpr const char* PART = "part";
constexpr const char* ZOOM = "zoom";
constexpr const char* X = "x";
constexpr const char* Y = "y";
constexpr int OWNER_ONLY = 0600;
constexpr int FOLDER_OF_OWNER = 0700;

double inRange(double value, double largest) {
    return std::isfinite(value) ? std::clamp(value, 0.0, largest) : 0.0;
}

} // namespace

// The file in memory: one group for each document, named by its URI.
class History::Table {
public:
    explicit Table(const std::string& path) : mFile(g_key_file_new()) {
        g_key_file_load_from_file(mFile.get(), path.c_str(), G_KEY_FILE_NONE, nullptr);
    }

    GKeyFile* file() const { return mFile.get(); }
    bool has(const std::string& uri) const { return g_key_file_has_group(file(), uri.c_str()) != FALSE; }

    std::vector<Entry> entries() const {
        std::vector<Entry> all;
        char** groups = g_key_file_get_groups(file(), nullptr);
        for (char** group = groups; *group != nullptr; ++group) {
            all.push_back({*group, g_key_file_get_int64(file(), *group, OPENED, nullptr)});
        }
        g_strfreev(groups);
        std::stable_sort(all.begin(), all.end(),
                         [](const Entry& one, const Entry& other) { return one.opened > other.opened; });
        return all;
    }

    void forgetOldest() const {
        const std::vector<Entry> all = entries();
        for (size_t index = LIMIT; index < all.size(); ++index) {
            g_key_file_remove_group(file(), all[index].uri.c_str(), nullptr);
        }
    }

    double number(const std::string& uri, const char* key) const {
        return g_key_file_get_double(file(), uri.c_str(), key, nullptr);
    }

    void write(const std::string& path) const {
        const GLibHolder<char> folder(g_path_get_dirname(path.c_str()));
        g_mkdir_with_parents(folder.get(), FOLDER_OF_OWNER);
        gsize length = 0;
        const GLibHolder<char> text(g_key_file_to_data(file(), &length, nullptr));
        g_file_set_contents_full(path.c_str(), text.get(), static_cast<gssize>(length),
                                 G_FILE_SET_CONTENTS_CONSISTENT, OWNER_ONLY, nullptr);
    }

private:
    struct Release {
        void operator()(GKeyFile* file) const { g_key_file_unref(file); }
    };
    std::unique_ptr<GKeyFile, Release> mFile;
};

std::string History::usualPath() {
    const GLibHolder<char> path(g_build_filename(g_get_user_state_dir(), "lectern", "history", nullptr));
    return path.get();
}

std::vector<History::Entry> History::entries() const {
    return Table(mPath).entries();
}

void History::add(const std::string& uri, gint64 time) const {
    const Table table(mPath);
    g_key_file_set_int64(table.file(), uri.c_str(), OPENED, time);
    table.forgetOldest();
    table.write(mPath);
}

Place History::placeOf(const std::string& uri) const {
    constexpr double LARGEST_ZOOM = 8;
    constexpr double FURTHEST = 1e6; // more inches than a sheet has
    const Table table(mPath);
    return {.part = std::max(0, g_key_file_get_integer(table.file(), uri.c_str(), PART, nullptr)),
            .zoom = inRange(table.number(uri, ZOOM), LARGEST_ZOOM),
            .x = inRange(table.number(uri, X), FURTHEST),
            .y = inRange(table.number(uri, Y), FURTHEST)};
}

void History::setPlace(const std::string& uri, const Place& place) const {
    const Table table(mPath);
    if (!table.has(uri)) {
        return;
    }
    g_key_file_set_integer(table.file(), uri.c_str(), PART, place.part);
    g_key_file_set_double(table.file(), uri.c_str(), ZOOM, place.zoom);
    g_key_file_set_double(table.file(), uri.c_str(), X, place.x);
    g_key_file_set_double(table.file(), uri.c_str(), Y, place.y);
    table.write(mPath);
}

void History::clear() const {
    g_unlink(mPath.c_str());
}

} // namespace lectern::viewer
