// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/StateSegment.h>
#include <lectern/TouchCalls.h>

#include <lectern-glib/lectern-document.h>

#include <string>

namespace lectern {

// The values of a document's properties. DocumentProperties.cpp has their names.
struct DocumentValues {
    // Given before the open.
    int width = 480;
    int height = 800;
    double dpi = 96.0;
    LecternDocumentKind kind = LECTERN_DOCUMENT_KIND_UNKNOWN;

    std::string title;
    gint64 documentWidth = 0;
    gint64 documentHeight = 0;
    int visibleWidth = 0;
    int visibleHeight = 0;
    int x = 0;
    int y = 0;
    double zoom = 1.0;
    double smallestZoom = 1.0;
    double largestZoom = 1.0;
    double fitZoom = 1.0;
    int part = 0;
    int nParts = 1;
    int hit = -1;
    int nHits = 0;
    bool searching = false;
    bool moving = false;
    int progress = 0;
    bool opening = false;
    bool opened = false;
    bool gone = false;
};

} // namespace lectern
