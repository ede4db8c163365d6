// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <adwaita.h>
#include <lectern-gtk4/lectern-gtk4.h>

#include <string>

namespace lectern::viewer {

inline constexpr const char* APPLICATION_ID = "com.kestrel.office.Viewer";
inline constexpr const char* RESOURCES = "/com/kestrel/office/viewer/";
inline constexpr const char* TEXT_DOMAIN = "lectern"; // of gettext

// What a window offers to its parts: the search bar, the side bar, the bar of a sheet,
// the actions. It outlives them.
class Shell {
public:
    virtual ~Shell() = default;

    virtual GtkWindow* window() = 0;
    // The view. It has its document before that is opened: see signalsOfDocument() in Ui.h.
    virtual LecternView* view() = 0;
    // The opened document, or null.
    virtual LecternDocument* document() = 0;
    // Where parts add their actions, named "win.NAME" in menus and shortcuts.
    virtual GActionMap* actions() = 0;

    // Shows a short message for some seconds.
    virtual void say(const std::string& message) = 0;
    // For messages with buttons or of another length.
    virtual AdwToastOverlay* toasts() = 0;
    // Opens a file: in this window if it has no document, else in one of its own.
    virtual void open(GFile* file) = 0;
};

} // namespace lectern::viewer
