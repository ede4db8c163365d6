// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <glib.h>

#include <string>
#include <vector>

namespace lectern::viewer {

// Where a reader left a document. It fits the document as well as it can if that has
// changed since.
struct Place {
    int part = 0;    // the sheet or slide, from 0
    double zoom = 0; // 0: the zoom that fits the window
    double x = 0;    // the corner of the visible part, in the unit of Bookmark.cpp
    double y = 0;    // the same

    bool operator==(const Place&) const = default;
};

// The documents opened last, in a file of the user's state folder. It is read at each
// call, because another process may write to it; written by replacing it. A file that
// cannot be read is an empty history, and one that cannot be written stays as it was: it
// is no reason to disturb a reader.
class History {
public:
    static constexpr size_t LIMIT = 100; // documents; the oldest are forgotten

    struct Entry {
        std::string uri;
        gint64 opened; // seconds since 1970
    };

    explicit History(std::string path) : mPath(std::move(path)) {}
    // lectern/history in XDG_STATE_HOME, by default in ~/.local/state.
    static std::string usualPath();

    // The latest first.
    std::vector<Entry> entries() const;
    // Notes that a document was opened at this time.
    void add(const std::string& uri, gint64 time) const;
    // Of a document not in the history, its start.
    Place placeOf(const std::string& uri) const;
    // Has no effect on a document that is not in the history.
    void setPlace(const std::string& uri, const Place& place) const;
    void clear() const;

private:
    class Table;
    std::string mPath;
};

} // namespace lectern::viewer
