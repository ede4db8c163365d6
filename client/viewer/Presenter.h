// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/FullScreen.h"
#include "client/viewer/PresenterConsole.h"

#include <memory>

namespace lectern::viewer {

// Shows the slides full screen to an audience. Where there is a second monitor, they
// go there, and the presenter sees the notes and the next slide on the first.
class Presenter : public Part {
public:
    Presenter(Shell& shell, FullScreen& fullScreen);
    ~Presenter() override;

protected:
    void show(LecternDocument* document) override;

private:
    void toggle();
    void start();
    void stop();
    void letIdle();
    // Stops when the desktop ends the full screen.
    void follow();
    void openConsole(GdkMonitor* own);
    void swapMonitors();

    void previous() { turn(-1); }
    void next() { turn(1); }
    void turn(int slides);
    GtkEventController* newKeys();
    static gboolean onKey(GtkEventControllerKey* keys, guint key, guint code, GdkModifierType modifiers,
                          void* self);
    bool handleKey(guint key);

    static void onMotion(GtkEventControllerMotion* motion, double x, double y, void* self);
    void showPointer();
    static gboolean hidePointer(void* self);

    FullScreen& mFullScreen;
    GSimpleAction* mPresent;
    std::unique_ptr<PresenterConsole> mConsole; // with a second monitor
    GLibHolder<GdkMonitor> mSlidesMonitor;      // null without a second one
    GLibHolder<GdkMonitor> mConsoleMonitor;
    bool mPresenting = false;
    bool mWasFull = false;
    guint mInhibition = 0;
    guint mPointerTimer = 0; // runs while the pointer is shown
    double mPointerX = -1;
    double mPointerY = -1;
};

} // namespace lectern::viewer
