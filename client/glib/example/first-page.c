/* SPDX-License-Identifier: Apache-2.0 */
/* first-page DOCUMENT PICTURE: writes the first view of a document as a PNG picture. */
#include <cairo.h>
#include <lectern-glib/lectern-glib.h>

typedef struct {
    GMainLoop* loop;
    const char* picture;
    GError* error;
} Program;

static void painted(GObject* source, GAsyncResult* result, gpointer data) {
    LecternDocument* document = LECTERN_DOCUMENT(source);
    Program* program = data;
    if (lectern_document_paint_finish(document, result, NULL, &program->error)) {
        int width = 0;
        int height = 0;
        GBytes* pixels = lectern_document_get_frame(document, &width, &height);
        unsigned char* memory = (unsigned char*)g_bytes_get_data(pixels, NULL);
        cairo_surface_t* picture =
            cairo_image_surface_create_for_data(memory, CAIRO_FORMAT_RGB24, width, height, width * 4);
        cairo_surface_write_to_png(picture, program->picture);
        cairo_surface_destroy(picture);
    }
    g_main_loop_quit(program->loop);
}

static void opened(GObject* source, GAsyncResult* result, gpointer data) {
    LecternDocument* document = LECTERN_DOCUMENT(source);
    Program* program = data;
    if (lectern_document_open_finish(document, result, &program->error)) {
        lectern_document_paint_async(document, NULL, painted, program);
    } else {
        g_main_loop_quit(program->loop);
    }
}

int main(int argc, char** argv) {
    if (argc != 3) {
        return 2;
    }
    lectern_service_isolate(NULL); /* for devices without the service on the session bus */
    Program program = {g_main_loop_new(NULL, FALSE), argv[2], NULL};
    g_autoptr(LecternService) service = lectern_service_connect_sync(NULL, &program.error);
    if (service != NULL) {
        g_autoptr(GFile) file = g_file_new_for_commandline_arg(argv[1]);
        g_autoptr(LecternDocument) document = lectern_document_new(service, file);
        lectern_document_open_async(document, NULL, NULL, opened, &program);
        g_main_loop_run(program.loop);
    }
    g_main_loop_unref(program.loop);
    if (program.error != NULL) {
        g_printerr("%s\n", program.error->message);
        g_error_free(program.error);
        return 1;
    }
    return 0;
}
