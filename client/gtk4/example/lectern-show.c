/* SPDX-License-Identifier: Apache-2.0 */
/* lectern-show FILE: shows a document in a window. */
#include <lectern-gtk4/lectern-gtk4.h>

static void opened(GObject* document, GAsyncResult* result, gpointer window) {
    GError* error = NULL;
    if (!lectern_document_open_finish(LECTERN_DOCUMENT(document), result, &error)) {
        gtk_window_set_title(window, error->message);
        g_error_free(error);
    }
}

static void show(GApplication* application, GFile** files, int count, const char* hint, gpointer service) {
    (void)count, (void)hint;
    GtkWidget* window = gtk_application_window_new(GTK_APPLICATION(application));
    GtkWidget* scrolled = gtk_scrolled_window_new();
    GtkWidget* view = lectern_view_new();
    gtk_scrolled_window_set_child(GTK_SCROLLED_WINDOW(scrolled), view);
    gtk_window_set_child(GTK_WINDOW(window), scrolled);
    gtk_window_set_default_size(GTK_WINDOW(window), 360, 640);

    LecternDocument* document = lectern_document_new(service, files[0]);
    lectern_view_set_document(LECTERN_VIEW(view), document);
    lectern_document_open_async(document, NULL, NULL, opened, window);
    g_object_unref(document);
    gtk_window_present(GTK_WINDOW(window));
}

int main(int argc, char** argv) {
    lectern_service_isolate(NULL); /* first, while the process has one thread */
    LecternService* service = lectern_service_connect_sync(NULL, NULL);
    GApplicationFlags flags = G_APPLICATION_HANDLES_OPEN | G_APPLICATION_NON_UNIQUE;
    GtkApplication* application = gtk_application_new("com.kestrel.office.Show", flags);
    g_signal_connect(application, "open", G_CALLBACK(show), service);
    int status = g_application_run(G_APPLICATION(application), argc, argv);
    g_object_unref(application);
    g_clear_object(&service);
    return status;
}
