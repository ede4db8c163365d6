// SPDX-License-Identifier: Apache-2.0
#include "client/glib/DocumentProperties.h"

#include "client/glib/DocumentObject.h"

#include <algorithm>
#include <limits>

namespace lectern {

namespace {

constexpr auto READABLE = static_cast<GParamFlags>(G_PARAM_READABLE | G_PARAM_STATIC_STRINGS);
// Those that can be set before the open.
constexpr auto WRITABLE =
    static_cast<GParamFlags>(G_PARAM_READWRITE | G_PARAM_STATIC_STRINGS | G_PARAM_EXPLICIT_NOTIFY);
constexpr auto CONSTRUCTED =
    static_cast<GParamFlags>(G_PARAM_READWRITE | G_PARAM_STATIC_STRINGS | G_PARAM_CONSTRUCT_ONLY);

template<typename Value>
struct ValueProperty {
    const char* name;
    Value DocumentValues::*member;
    Value smallest;
    Value largest;
    GParamFlags flags = READABLE;
    GParamSpec* spec = nullptr; // since the class was made
};

constexpr int MOST = std::numeric_limits<int>::max();
constexpr double LARGEST_DPI = 1200;
constexpr double SMALLEST_DPI = 36;

ValueProperty<int> gInts[] = {
    {"width", &DocumentValues::width, 1, FrameBuffer::MAX_SIDE, WRITABLE},
    {"height", &DocumentValues::height, 1, FrameBuffer::MAX_SIDE, WRITABLE},
    {"visible-width", &DocumentValues::visibleWidth, 0, MOST},
    {"visible-height", &DocumentValues::visibleHeight, 0, MOST},
    {"x", &DocumentValues::x, -MOST, MOST},
    {"y", &DocumentValues::y, -MOST, MOST},
    {"part", &DocumentValues::part, 0, MOST},
    {"n-parts", &DocumentValues::nParts, 0, MOST},
    {"hit", &DocumentValues::hit, -1, MOST},
    {"n-hits", &DocumentValues::nHits, 0, MOST},
    {"progress", &DocumentValues::progress, 0, 100},
};
ValueProperty<gint64> gWideInts[] = {
    {"document-width", &DocumentValues::documentWidth, 0, G_MAXINT64},
    {"document-height", &DocumentValues::documentHeight, 0, G_MAXINT64},
};
ValueProperty<double> gDoubles[] = {
    {"dpi", &DocumentValues::dpi, SMALLEST_DPI, LARGEST_DPI, WRITABLE},
    {"zoom", &DocumentValues::zoom, 0, G_MAXDOUBLE},
    {"smallest-zoom", &DocumentValues::smallestZoom, 0, G_MAXDOUBLE},
    {"largest-zoom", &DocumentValues::largestZoom, 0, G_MAXDOUBLE},
    {"fit-zoom", &DocumentValues::fitZoom, 0, G_MAXDOUBLE},
};
ValueProperty<bool> gBools[] = {
    {"searching", &DocumentValues::searching, false, true}, {"moving", &DocumentValues::moving, false, true},
    {"opening", &DocumentValues::opening, false, true},     {"opened", &DocumentValues::opened, false, true},
    {"gone", &DocumentValues::gone, false, true},
};
GParamSpec* gKind;
GParamSpec* gTitle;
GParamSpec* gService;
GParamSpec* gFile;

GParamSpec* makeSpec(const ValueProperty<int>& p, int initial) {
    return g_param_spec_int(p.name, nullptr, nullptr, p.smallest, p.largest, initial, p.flags);
}
GParamSpec* makeSpec(const ValueProperty<gint64>& p, gint64 initial) {
    return g_param_spec_int64(p.name, nullptr, nullptr, p.smallest, p.largest, initial, p.flags);
}
GParamSpec* makeSpec(const ValueProperty<double>& p, double initial) {
    return g_param_spec_double(p.name, nullptr, nullptr, p.smallest, p.largest, initial, p.flags);
}
GParamSpec* makeSpec(const ValueProperty<bool>& p, bool initial) {
    return g_param_spec_boolean(p.name, nullptr, nullptr, initial ? TRUE : FALSE, p.flags);
}

void store(GValue* to, int value) {
    g_value_set_int(to, value);
}
void store(GValue* to, gint64 value) {
    g_value_set_int64(to, value);
}
void store(GValue* to, double value) {
    g_value_set_double(to, value);
}
void store(GValue* to, bool value) {
    g_value_set_boolean(to, value ? TRUE : FALSE);
}

// Calls `visit` with each table.
template<typename Visit>
void visitTables(Visit visit) {
    visit(gInts);
    visit(gWideInts);
    visit(gDoubles);
    visit(gBools);
}

void getProperty(GObject* object, guint, GValue* value, GParamSpec* spec) {
    const DocumentMembers& members = *LECTERN_DOCUMENT(object)->members;
    visitTables([&](const auto& table) {
        for (const auto& property : table) {
            if (property.spec == spec) {
                store(value, members.values.*property.member);
            }
        }
    });
    if (spec == gKind) {
        g_value_set_enum(value, members.values.kind);
    } else if (spec == gTitle) {
        g_value_set_string(value, members.values.title.c_str());
    } else if (spec == gService) {
        g_value_set_object(value, members.service.get());
    } else if (spec == gFile) {
        g_value_set_object(value, members.file.get());
    }
}

void setProperty(GObject* object, guint, const GValue* value, GParamSpec* spec) {
    LecternDocument* self = LECTERN_DOCUMENT(object);
    DocumentMembers& members = *self->members;
    if (members.opening != nullptr || members.document != nullptr) {
        g_critical("the property \"%s\" of a document cannot be set after the open", spec->name);
        return;
    }
    if (spec == gInts[0].spec || spec == gInts[1].spec) {
        change(self, spec == gInts[0].spec ? &DocumentValues::width : &DocumentValues::height,
               g_value_get_int(value));
    } else if (spec == gDoubles[0].spec) {
        change(self, &DocumentValues::dpi, g_value_get_double(value));
    } else if (spec == gKind) {
        changeKind(self, static_cast<LecternDocumentKind>(g_value_get_enum(value)));
    } else if (spec == gService) {
        members.service.reset(LECTERN_SERVICE(g_value_dup_object(value)));
    } else if (spec == gFile) {
        members.file.reset(G_FILE(g_value_dup_object(value)));
        const GLibHolder<char> name(members.file == nullptr ? nullptr
                                                            : g_file_get_basename(members.file.get()));
        members.values.title = name == nullptr ? "" : name.get();
    }
}

template<typename Value, size_t size>
void changeIn(ValueProperty<Value> (&table)[size], LecternDocument* self, Value DocumentValues::*member,
              Value value) {
    if (self->members->values.*member == value) {
        return;
    }
    self->members->values.*member = value;
    const auto found = std::find_if(std::begin(table), std::end(table),
                                    [&](const auto& property) { return property.member == member; });
    g_object_notify_by_pspec(G_OBJECT(self), found->spec);
}

} // namespace

void installProperties(GObjectClass* type) {
    type->get_property = getProperty;
    type->set_property = setProperty;
    guint number = 0;
    const DocumentValues initial;
    visitTables([&](auto& table) {
        for (auto& property : table) {
            property.spec = makeSpec(property, initial.*property.member);
            g_object_class_install_property(type, ++number, property.spec);
        }
    });
    gKind = g_param_spec_enum("kind", nullptr, nullptr, LECTERN_TYPE_DOCUMENT_KIND,
                              LECTERN_DOCUMENT_KIND_UNKNOWN, WRITABLE);
    gTitle = g_param_spec_string("title", nullptr, nullptr, "", READABLE);
    gService = g_param_spec_object("service", nullptr, nullptr, LECTERN_TYPE_SERVICE, CONSTRUCTED);
    gFile = g_param_spec_object("file", nullptr, nullptr, G_TYPE_FILE, CONSTRUCTED);
    for (GParamSpec* spec : {gKind, gTitle, gService, gFile}) {
        g_object_class_install_property(type, ++number, spec);
    }
}

void change(LecternDocument* self, int DocumentValues::*member, int value) {
    changeIn(gInts, self, member, value);
}

void change(LecternDocument* self, gint64 DocumentValues::*member, gint64 value) {
    changeIn(gWideInts, self, member, value);
}

void change(LecternDocument* self, double DocumentValues::*member, double value) {
    changeIn(gDoubles, self, member, value);
}

void change(LecternDocument* self, bool DocumentValues::*member, bool value) {
    changeIn(gBools, self, member, value);
}

void changeKind(LecternDocument* self, LecternDocumentKind kind) {
    if (std::exchange(self->members->values.kind, kind) != kind) {
        g_object_notify_by_pspec(G_OBJECT(self), gKind);
    }
}

void changeTitle(LecternDocument* self, const std::string& title) {
    if (std::exchange(self->members->values.title, title) != title) {
        g_object_notify_by_pspec(G_OBJECT(self), gTitle);
    }
}

void takeView(LecternDocument* self, const touch::ViewPlace& view) {
    const Notifications notifications(self);
    change(self, &DocumentValues::documentWidth, gint64{view.documentWidth});
    change(self, &DocumentValues::documentHeight, gint64{view.documentHeight});
    change(self, &DocumentValues::visibleWidth, view.view.width);
    change(self, &DocumentValues::visibleHeight, view.view.height);
    change(self, &DocumentValues::smallestZoom, view.smallestZoom);
    change(self, &DocumentValues::largestZoom, view.largestZoom);
    change(self, &DocumentValues::fitZoom, view.fit);
    change(self, &DocumentValues::nParts, view.parts);
    change(self, &DocumentValues::hit, view.hit);
    change(self, &DocumentValues::nHits, view.hits);
    change(self, &DocumentValues::moving, view.isMoving);
}

void takeZoomAndPart(LecternDocument* self, const touch::ViewPlace& view) {
    change(self, &DocumentValues::zoom, view.zoom);
    change(self, &DocumentValues::part, view.part);
}

// The scale of a presentation's state counts from pixels and not from inches, and texts have no parts.
void takeState(LecternDocument* self, const ViewState& state) {
    constexpr double POINTS_PER_INCH = 72.0;
    const Notifications notifications(self);
    const DocumentValues& values = self->members->values;
    const double scaleOfOne =
        values.kind == LECTERN_DOCUMENT_KIND_PRESENTATION ? values.dpi / POINTS_PER_INCH : 1.0;
    change(self, &DocumentValues::x, state.scrollX);
    change(self, &DocumentValues::y, state.scrollY);
    change(self, &DocumentValues::zoom, state.scale / scaleOfOne);
    change(self, &DocumentValues::part, values.kind == LECTERN_DOCUMENT_KIND_TEXT ? 0 : state.part);
}

} // namespace lectern
