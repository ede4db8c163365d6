// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Connection.h"

#include <lectern-gtk4/lectern-gtk4.h>

#include <optional>
#include <string>

namespace lectern::viewer {

// Opens the document of a window. The view gets it at once, so that it opens at the
// view's size.
class Opener {
public:
    // What a window does at the ends of an open.
    class Listener {
    public:
        virtual ~Listener() = default;
        virtual void opened() = 0;
        virtual void failed(const GError& error) = 0;
    };

    Opener(Connection& connection, LecternView* view, Listener& listener)
        : mConnection(connection), mView(view), mListener(listener) {}
    ~Opener() { close(); }
    Opener(const Opener&) = delete;
    Opener& operator=(const Opener&) = delete;

    void open(GFile* file);
    // Opens the file again, after a failure or because it has changed.
    void openAgain(std::optional<std::string> password = std::nullopt);
    // Ends an open that is under way, or closes the document.
    void close();
    // The file that was opened last or is being opened; null after close().
    GFile* file() const { return mFile.get(); }
    // True from open() until it fails or is closed.
    bool inUse() const { return mInUse; }

private:
    void startWhenSized();
    void start();
    void finish(GObject* source, GAsyncResult* result);
    void fail(const GError& error);
    void stop();

    Connection& mConnection;
    LecternView* mView;
    Listener& mListener;
    GLibHolder<GFile> mFile;
    GLibHolder<LecternService> mService;
    bool mInUse = false;
    guint mFrame = 0; // the callback that waits for the view's size
    std::optional<std::string> mPassword;
    Pending mPending;
};

} // namespace lectern::viewer
