/* SPDX-License-Identifier: Apache-2.0 */
/* A reader in C: opens, scrolls, searches and reopens a document of each kind. */
#include <lectern-glib/lectern-glib.h>

typedef struct {
    const char* name;
    LecternDocumentKind kind;
    int parts;
} Sample;

static const Sample SAMPLES[] = {
    {"tour.docx", LECTERN_DOCUMENT_KIND_TEXT, 1},
    {"tour.xlsx", LECTERN_DOCUMENT_KIND_SPREADSHEET, 5},
    {"tour.pptx", LECTERN_DOCUMENT_KIND_PRESENTATION, 7},
};

static LecternService* service;

static void take(GObject* source, GAsyncResult* result, gpointer taken) {
    (void)source;
    *(GAsyncResult**)taken = g_object_ref(result);
}

/* Runs the loop until a call has ended, whose callback is take(). */
static GAsyncResult* wait_for(GAsyncResult** taken) {
    while (*taken == NULL) {
        g_main_context_iteration(NULL, TRUE);
    }
    return *taken;
}

/* Makes a call without a value, and expects its success. */
#define CALL(method, document, ...)                                                                          \
    do {                                                                                                     \
        g_autoptr(GAsyncResult) result = NULL;                                                               \
        g_autoptr(GError) error = NULL;                                                                      \
        lectern_document_##method##_async(document, __VA_ARGS__, NULL, take, &result);                       \
        lectern_document_##method##_finish(document, wait_for(&result), &error);                             \
        g_assert_no_error(error);                                                                            \
    } while (0)

static LecternRectangle paint(LecternDocument* document) {
    g_autoptr(GAsyncResult) result = NULL;
    g_autoptr(GError) error = NULL;
    LecternRectangle damage = {0, 0, 0, 0};
    lectern_document_paint_async(document, NULL, take, &result);
    lectern_document_paint_finish(document, wait_for(&result), &damage, &error);
    g_assert_no_error(error);
    return damage;
}

static LecternDocument* open_sample(const Sample* sample) {
    g_autofree char* path = g_build_filename(g_getenv("LECTERN_SAMPLES"), sample->name, NULL);
    g_autoptr(GFile) file = g_file_new_for_path(path);
    LecternDocument* document = lectern_document_new(service, file);
    g_object_set(document, "width", 400, "height", 300, "dpi", 96.0, NULL);
    CALL(open, document, NULL);
    g_assert_true(lectern_document_get_opened(document));
    g_assert_cmpint(lectern_document_get_kind(document), ==, sample->kind);
    g_assert_cmpint(lectern_document_get_n_parts(document), ==, sample->parts);
    return document;
}

static void expect_whole_picture(LecternDocument* document) {
    const LecternRectangle damage = paint(document);
    g_assert_cmpint(damage.width, ==, 400);
    g_assert_cmpint(damage.height, ==, 300);
    int width = 0;
    int height = 0;
    GBytes* frame = lectern_document_get_frame(document, &width, &height);
    g_assert_cmpint(width, ==, 400);
    g_assert_cmpint(height, ==, 300);
    g_assert_cmpuint(g_bytes_get_size(frame), ==, 400 * 300 * 4);
    g_assert_cmpint(paint(document).width, ==, 0);
}

static void scroll(LecternDocument* document) {
    CALL(zoom_to, document, 2.0, -1, -1);
    g_assert_cmpfloat(lectern_document_get_zoom(document), ==, 2.0);
    CALL(scroll_to, document, 0, 100);
    g_assert_cmpint(paint(document).height, >, 0);
    g_assert_cmpint(lectern_document_get_y(document), ==, 100);
    g_assert_cmpint(lectern_document_get_document_height(document), >, 400);
}

static void search(LecternDocument* document) {
    CALL(search, document, "the", LECTERN_SEARCH_NONE);
    const int hits = lectern_document_get_n_hits(document);
    const int hit = lectern_document_get_hit(document);
    g_assert_cmpint(hits, >, 0);
    g_assert_cmpint(hit, >=, 0);

    g_autoptr(GAsyncResult) result = NULL;
    lectern_document_next_hit_async(document, NULL, take, &result);
    g_assert_true(lectern_document_next_hit_finish(document, wait_for(&result), NULL));
    g_assert_cmpint(lectern_document_get_hit(document), ==, (hit + 1) % hits);

    g_autoptr(GAsyncResult) nothing = NULL;
    g_autoptr(GError) error = NULL;
    lectern_document_search_async(document, "no such words", LECTERN_SEARCH_NONE, NULL, take, &nothing);
    g_assert_false(lectern_document_search_finish(document, wait_for(&nothing), &error));
    g_assert_error(error, LECTERN_SERVICE_ERROR, LECTERN_SERVICE_ERROR_NOTHING_THERE);
}

static void reopen(LecternDocument* document) {
    paint(document);
    const int y = lectern_document_get_y(document);
    const int part = lectern_document_get_part(document);
    g_autoptr(GAsyncResult) result = NULL;
    g_autoptr(GError) error = NULL;
    lectern_document_reopen_async(document, NULL, take, &result);
    lectern_document_reopen_finish(document, wait_for(&result), &error);
    g_assert_no_error(error);
    paint(document);
    g_assert_cmpint(lectern_document_get_y(document), ==, y);
    g_assert_cmpint(lectern_document_get_part(document), ==, part);
    g_assert_cmpfloat(lectern_document_get_zoom(document), ==, 2.0);
}

static void read_sample(gconstpointer sample) {
    g_autoptr(LecternDocument) document = open_sample(sample);
    expect_whole_picture(document);
    scroll(document);
    search(document);
    reopen(document);
}

int main(int argc, char** argv) {
    g_autoptr(GError) error = NULL;
    g_test_init(&argc, &argv, NULL);
    if (!lectern_service_isolate(&error) || (service = lectern_service_connect_sync(NULL, &error)) == NULL) {
        g_printerr("%s\n", error->message);
        return 1;
    }
    g_test_add_data_func("/reader/text", &SAMPLES[0], read_sample);
    g_test_add_data_func("/reader/spreadsheet", &SAMPLES[1], read_sample);
    g_test_add_data_func("/reader/presentation", &SAMPLES[2], read_sample);
    const int status = g_test_run();
    g_object_unref(service);
    return status;
}
