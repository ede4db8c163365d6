// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/glib/DocumentValues.h"

namespace lectern {

// Installs the properties of the class, and the functions that read and set them.
void installProperties(GObjectClass* type);

// Holds back the notifications of a document while it lives, so that those who hear one
// find all values changed.
class Notifications {
public:
    explicit Notifications(LecternDocument* document) : mObject(G_OBJECT(document)) {
        g_object_freeze_notify(mObject);
    }
    ~Notifications() { g_object_thaw_notify(mObject); }
    Notifications(const Notifications&) = delete;
    Notifications& operator=(const Notifications&) = delete;

private:
    GObject* mObject;
};

// Changes a value and notifies, if it differs.
void change(LecternDocument* self, int DocumentValues::*member, int value);
void change(LecternDocument* self, gint64 DocumentValues::*member, gint64 value);
void change(LecternDocument* self, double DocumentValues::*member, double value);
void change(LecternDocument* self, bool DocumentValues::*member, bool value);
void changeKind(LecternDocument* self, LecternDocumentKind kind);
void changeTitle(LecternDocument* self, const std::string& title);

// Takes over the answer to getView, but not the place of the view.
void takeView(LecternDocument* self, const touch::ViewPlace& view);
// And its zoom and part, ahead of the next paint.
void takeZoomAndPart(LecternDocument* self, const touch::ViewPlace& view);
// Takes over the place of the view that belongs to a painted picture.
void takeState(LecternDocument* self, const ViewState& state);

} // namespace lectern
