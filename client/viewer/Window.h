// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/viewer/Bookmark.h"
#include "client/viewer/DocumentActions.h"
#include "client/viewer/FileDialog.h"
#include "client/viewer/LinkDialog.h"
#include "client/viewer/NightReading.h"
#include "client/viewer/NotesPane.h"
#include "client/viewer/Opener.h"
#include "client/viewer/OpeningPage.h"
#include "client/viewer/PageIndicator.h"
#include "client/viewer/PasswordPage.h"
#include "client/viewer/Presenter.h"
#include "client/viewer/ProblemPage.h"
#include "client/viewer/PropertiesDialog.h"
#include "client/viewer/SearchBar.h"
#include "client/viewer/SheetBar.h"
#include "client/viewer/SideBar.h"
#include "client/viewer/Ui.h"
#include "client/viewer/WelcomePage.h"
#include "client/viewer/ZoomActions.h"

namespace lectern::viewer {

class Application;

// A window: its pages, and the parts of the page that shows a document.
class Window : public Shell, private Opener::Listener {
public:
    explicit Window(Application& application);
    ~Window() override;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    GtkWindow* window() override { return GTK_WINDOW(mUi.object("window")); }
    LecternView* view() override { return mView; }
    LecternDocument* document() override;
    GActionMap* actions() override { return G_ACTION_MAP(mUi.object("window")); }
    void say(const std::string& message) override;
    AdwToastOverlay* toasts() override { return ADW_TOAST_OVERLAY(mUi.object("toasts")); }
    void open(GFile* file) override;

    // Opens a file in this window.
    void show(GFile* file);
    // The file that is shown, being opened, or cannot be opened; null on the welcome page.
    GFile* file() const { return mOpener.file(); }
    // True if the window has no document and opens none.
    bool isFree() const { return !mOpener.inUse(); }

private:
    void opened() override;
    void failed(const GError& error) override;

    void addActions();
    void acceptDrops();
    static gboolean closed(void* self);
    static gboolean drop(void* self, const GValue* value);
    void reload() { openAgain(std::nullopt); }
    void openAgain(std::optional<std::string> password);
    void cancelOpen();
    void close() { gtk_window_close(window()); }
    void askForFile() { mFileDialog.show(); }
    void showPage(const char* name);
    void showOpening();
    void limitWidth(bool isText);
    void showTools(bool shown);

    // Puts a part's widget into a place of window.ui: an AdwBin.
    void fill(const char* place, GtkWidget* widget) { adw_bin_set_child(ADW_BIN(mUi.object(place)), widget); }
    AdwFlap* flap() { return ADW_FLAP(mUi.object("flap")); }
    // Lays a part's widget over the document.
    void overlay(GtkWidget* widget) { gtk_overlay_add_overlay(GTK_OVERLAY(mUi.object("overlay")), widget); }
    void fillPlaces();

    Application& mApplication;
    Ui mUi{"window.ui"};
    LecternView* mView; // owned by the scrolled window
    Opener mOpener;
    Bookmark mBookmark;
    FileDialog mFileDialog{*this};
    WelcomePage mWelcome;
    OpeningPage mOpening{*this};
    ProblemPage mProblem;
    PasswordPage mPassword;
    DocumentActions mDocumentActions{*this};
    ZoomActions mZoomActions{*this};
    NightReading mNightReading{*this};
    FullScreen mFullScreen{*this, ADW_FLAP(mUi.object("top")), GTK_REVEALER(mUi.object("bottom"))};
    Presenter mPresenter{*this, mFullScreen};
    SearchBar mSearchBar{*this};
    SideBar mSideBar{*this, flap()};
    SheetBar mSheetBar{*this};
    NotesPane mNotesPane{*this};
    PageIndicator mPageIndicator{*this, mSheetBar.tabs()};
    LinkDialog mLinkDialog{*this};
    PropertiesDialog mPropertiesDialog{*this};
};

} // namespace lectern::viewer
