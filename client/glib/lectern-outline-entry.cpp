// SPDX-License-Identifier: Apache-2.0
#include "client/glib/OutlineEntry.h"

/**
 * LecternOutlineEntry:
 *
 * A heading of a text, or a sheet or slide. An object, so that list views can show it.
 * Entries never change.
 */
struct _LecternOutlineEntry {
    GObject parent;
    char* title;
    int level;
    int part;
    int number;
};

G_DEFINE_TYPE(LecternOutlineEntry, lectern_outline_entry, G_TYPE_OBJECT)

namespace {

enum Property : guint { PROPERTY_TITLE = 1, PROPERTY_LEVEL, PROPERTY_PART, PROPERTY_NUMBER, END };

void getProperty(GObject* object, guint id, GValue* value, GParamSpec* spec) {
    LecternOutlineEntry* self = LECTERN_OUTLINE_ENTRY(object);
    switch (id) {
    case PROPERTY_TITLE:
        g_value_set_string(value, self->title);
        break;
    case PROPERTY_LEVEL:
        g_value_set_int(value, self->level);
        break;
    case PROPERTY_PART:
        g_value_set_int(value, self->part);
        break;
    case PROPERTY_NUMBER:
        g_value_set_int(value, self->number);
        break;
    default:
        G_OBJECT_WARN_INVALID_PROPERTY_ID(object, id, spec);
    }
}

void finalize(GObject* object) {
    g_free(LECTERN_OUTLINE_ENTRY(object)->title);
    G_OBJECT_CLASS(lectern_outline_entry_parent_class)->finalize(object);
}

GParamSpec* countedProperty(const char* name) {
    constexpr auto FLAGS = static_cast<GParamFlags>(G_PARAM_READABLE | G_PARAM_STATIC_STRINGS);
    return g_param_spec_int(name, nullptr, nullptr, 0, G_MAXINT, 0, FLAGS);
}

} // namespace

static void lectern_outline_entry_class_init(LecternOutlineEntryClass* type) {
    constexpr auto FLAGS = static_cast<GParamFlags>(G_PARAM_READABLE | G_PARAM_STATIC_STRINGS);
    GObjectClass* object = G_OBJECT_CLASS(type);
    object->get_property = getProperty;
    object->finalize = finalize;

    /**
     * LecternOutlineEntry:title:
     *
     * The words of the heading, or the name of the sheet or slide.
     */
    g_object_class_install_property(object, PROPERTY_TITLE,
                                    g_param_spec_string("title", nullptr, nullptr, "", FLAGS));
    /**
     * LecternOutlineEntry:level:
     *
     * How deep it lies below other entries, from 0.
     */
    g_object_class_install_property(object, PROPERTY_LEVEL, countedProperty("level"));
    /**
     * LecternOutlineEntry:part:
     *
     * Its sheet, slide or page, from 0.
     */
    g_object_class_install_property(object, PROPERTY_PART, countedProperty("part"));
    /**
     * LecternOutlineEntry:number:
     *
     * Its number in the outline, from 0, for [method@Document.go_to_async].
     */
    g_object_class_install_property(object, PROPERTY_NUMBER, countedProperty("number"));
}

static void lectern_outline_entry_init(LecternOutlineEntry* self) {
    self->title = g_strdup("");
}

/**
 * lectern_outline_entry_get_title:
 * @self: an entry
 *
 * Reads [property@OutlineEntry:title].
 *
 * Returns: (transfer none): the words of the heading, or the name of the sheet or slide
 */
const char* lectern_outline_entry_get_title(LecternOutlineEntry* self) {
    g_return_val_if_fail(LECTERN_IS_OUTLINE_ENTRY(self), "");
    return self->title;
}

/**
 * lectern_outline_entry_get_level:
 * @self: an entry
 *
 * Reads [property@OutlineEntry:level].
 *
 * Returns: how deep it lies below other entries, from 0
 */
int lectern_outline_entry_get_level(LecternOutlineEntry* self) {
    g_return_val_if_fail(LECTERN_IS_OUTLINE_ENTRY(self), 0);
    return self->level;
}

/**
 * lectern_outline_entry_get_part:
 * @self: an entry
 *
 * Reads [property@OutlineEntry:part].
 *
 * Returns: its sheet, slide or page, from 0
 */
int lectern_outline_entry_get_part(LecternOutlineEntry* self) {
    g_return_val_if_fail(LECTERN_IS_OUTLINE_ENTRY(self), 0);
    return self->part;
}

/**
 * lectern_outline_entry_get_number:
 * @self: an entry
 *
 * Reads [property@OutlineEntry:number].
 *
 * Returns: its number in the outline, from 0, for [method@Document.go_to_async]
 */
int lectern_outline_entry_get_number(LecternOutlineEntry* self) {
    g_return_val_if_fail(LECTERN_IS_OUTLINE_ENTRY(self), 0);
    return self->number;
}

namespace lectern {

LecternOutlineEntry* newOutlineEntry(const touch::OutlineEntry& entry, int number) {
    auto* made = LECTERN_OUTLINE_ENTRY(g_object_new(LECTERN_TYPE_OUTLINE_ENTRY, nullptr));
    g_free(made->title);
    made->title = g_strdup(entry.title.c_str());
    made->level = entry.level;
    made->part = entry.part;
    made->number = number;
    return made;
}

} // namespace lectern
