// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/ViewAccessible.h"

#include <glib/gi18n-lib.h>

#include <string>
#include <utility>

namespace lectern::gtk4 {

namespace {

constexpr guint REST = 300; // milliseconds without a new picture

bool isTrue(GDBusProxy* proxy, const char* property) {
    GLibHolder<GVariant> value(g_dbus_proxy_get_cached_property(proxy, property));
    return value && g_variant_is_of_type(value.get(), G_VARIANT_TYPE_BOOLEAN) != FALSE &&
           g_variant_get_boolean(value.get()) != FALSE;
}

GtkWidget* newText() {
    GtkWidget* text = gtk_text_view_new();
    gtk_text_view_set_editable(GTK_TEXT_VIEW(text), FALSE);
    gtk_widget_set_focusable(text, FALSE);
    gtk_widget_set_can_target(text, FALSE);
    gtk_widget_set_opacity(text, 0);
    gtk_accessible_update_property(GTK_ACCESSIBLE(text), GTK_ACCESSIBLE_PROPERTY_LABEL,
                                   _("Text on the screen"), -1);
    return text;
}

std::string joined(GPtrArray* lines) {
    std::string text;
    for (guint i = 0; i < lines->len; ++i) {
        text += static_cast<const LecternTextLine*>(lines->pdata[i])->text;
        text += '\n';
    }
    return text;
}

} // namespace

ViewAccessible::ViewAccessible(ViewContext& context, const ViewSelection& selection)
    : mContext(context), mSelection(selection) {
    mContext.onDocument("notify::title", G_CALLBACK(onSignal<&ViewAccessible::noteTitle>), this);
    g_dbus_proxy_new_for_bus(G_BUS_TYPE_SESSION, G_DBUS_PROXY_FLAGS_DO_NOT_AUTO_START, nullptr,
                             "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Status", mPending.get(),
                             asyncDone<&ViewAccessible::connected>, this);
}

ViewAccessible::~ViewAccessible() {
    stopTimer();
    dispose();
    if (mStatus) {
        g_signal_handlers_disconnect_by_data(mStatus.get(), this);
    }
}

void ViewAccessible::dispose() {
    if (mText != nullptr) {
        gtk_widget_unparent(std::exchange(mText, nullptr));
    }
}

void ViewAccessible::reset() {
    mReading.giveUp();
    stopTimer();
    noteTitle();
    if (mText != nullptr) {
        gtk_text_buffer_set_text(gtk_text_view_get_buffer(GTK_TEXT_VIEW(mText)), "", 0);
    }
}

void ViewAccessible::connected(GObject* /*source*/, GAsyncResult* result) {
    mStatus.reset(g_dbus_proxy_new_for_bus_finish(result, nullptr));
    if (mStatus) {
        g_signal_connect_swapped(mStatus.get(), "g-properties-changed",
                                 G_CALLBACK(onSignal<&ViewAccessible::noteStatus>), this);
        noteStatus();
    }
}

void ViewAccessible::noteStatus() {
    const bool isEnabled = isTrue(mStatus.get(), "IsEnabled") || isTrue(mStatus.get(), "ScreenReaderEnabled");
    if (!isEnabled) {
        dispose();
    } else if (mText == nullptr) {
        mText = newText();
        gtk_widget_set_parent(mText, mContext.widget());
        noteChange();
    }
}

void ViewAccessible::noteTitle() {
    LecternDocument* document = mContext.document();
    const char* title = document == nullptr ? nullptr : lectern_document_get_title(document);
    gtk_accessible_update_property(GTK_ACCESSIBLE(mContext.widget()), GTK_ACCESSIBLE_PROPERTY_LABEL,
                                   title != nullptr ? title : _("Document"), -1);
}

void ViewAccessible::allocate(int width, int height) {
    if (mText != nullptr) {
        int smallest = 0;
        gtk_widget_measure(mText, GTK_ORIENTATION_HORIZONTAL, -1, &smallest, nullptr, nullptr, nullptr);
        width = std::max(width, smallest);
        gtk_widget_measure(mText, GTK_ORIENTATION_VERTICAL, width, &smallest, nullptr, nullptr, nullptr);
        gtk_widget_allocate(mText, width, std::max(height, smallest), -1, nullptr);
    }
}

void ViewAccessible::stopTimer() {
    if (mTimer != 0) {
        g_source_remove(std::exchange(mTimer, 0));
    }
}

void ViewAccessible::noteChange() {
    if (mText == nullptr) {
        return;
    }
    const auto rest = [](gpointer self) -> gboolean {
        auto* accessible = static_cast<ViewAccessible*>(self);
        accessible->mTimer = 0;
        accessible->read();
        return G_SOURCE_REMOVE;
    };
    stopTimer();
    mTimer = g_timeout_add(REST, rest, this);
}

void ViewAccessible::read() {
    LecternDocument* document = mContext.openDocument();
    if (document != nullptr && mText != nullptr) {
        mReading.giveUp();
        lectern_document_get_text_async(document, mReading.get(), asyncDone<&ViewAccessible::wasRead>, this);
    }
}

void ViewAccessible::wasRead(GObject* source, GAsyncResult* result) {
    GPtrArray* lines = lectern_document_get_text_finish(LECTERN_DOCUMENT(source), result, nullptr);
    if (lines == nullptr || mText == nullptr) {
        g_clear_pointer(&lines, g_ptr_array_unref);
        return;
    }
    const std::string text = joined(lines);
    g_ptr_array_unref(lines);
    GtkTextBuffer* buffer = gtk_text_view_get_buffer(GTK_TEXT_VIEW(mText));
    GtkTextIter first;
    GtkTextIter last;
    gtk_text_buffer_get_bounds(buffer, &first, &last);
    GLibHolder<char> shown(gtk_text_buffer_get_text(buffer, &first, &last, TRUE));
    if (text != shown.get()) {
        gtk_text_buffer_set_text(buffer, text.data(), static_cast<int>(text.size()));
        gtk_text_buffer_get_start_iter(buffer, &first);
        gtk_text_buffer_place_cursor(buffer, &first);
    }
    noteSelection();
}

// The caret stands where the selection ends, if that is on the screen.
void ViewAccessible::noteSelection() {
    if (mText == nullptr || mSelection.text().empty()) {
        return;
    }
    GtkTextBuffer* buffer = gtk_text_view_get_buffer(GTK_TEXT_VIEW(mText));
    GtkTextIter from;
    GtkTextIter first;
    GtkTextIter last;
    gtk_text_buffer_get_start_iter(buffer, &from);
    if (gtk_text_iter_forward_search(&from, mSelection.text().c_str(), GTK_TEXT_SEARCH_TEXT_ONLY, &first,
                                     &last, nullptr) != FALSE) {
        gtk_text_buffer_select_range(buffer, &last, &first);
    }
}

} // namespace lectern::gtk4
