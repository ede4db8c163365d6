// SPDX-License-Identifier: Apache-2.0
#include "touch/TouchView.h"

TouchResult TouchView::search(const char* /*text*/, const SearchOptions& /*options*/, HitPlace& /*hit*/) {
    return TouchResult::NotSupported;
}

TouchResult TouchView::stepToHit(int /*step*/, HitPlace& /*hit*/) {
    return TouchResult::NotSupported;
}

TouchResult TouchView::select(SelectUnit /*unit*/, const CpPoint& /*point*/) {
    return TouchResult::NotSupported;
}

TouchResult TouchView::moveSelectionEnd(SelectEnd /*end*/, const CpPoint& /*point*/) {
    return TouchResult::NotSupported;
}

TouchResult TouchView::selection(Selection& /*selection*/) {
    return TouchResult::NotSupported;
}

TouchResult TouchView::visibleText(std::vector<TextLine>& /*lines*/) {
    return TouchResult::NotSupported;
}

TouchResult TouchView::outline(std::vector<OutlineEntry>& /*entries*/) {
    return TouchResult::NotSupported;
}

TouchResult TouchView::goTo(int /*entry*/) {
    return TouchResult::NotSupported;
}

TouchResult TouchView::cell(int /*column*/, int /*row*/, Cell& /*cell*/) {
    return TouchResult::NotSupported;
}

TouchResult TouchView::exportTo(ExportFormat /*format*/, const char* /*path*/) {
    return TouchResult::NotSupported;
}

TouchResult TouchView::thumbnail(int /*part*/, uint32_t* /*pixels*/, int /*width*/, int /*height*/) {
    return TouchResult::NotSupported;
}
