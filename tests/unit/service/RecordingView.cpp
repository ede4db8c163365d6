// SPDX-License-Identifier: Apache-2.0
#include "RecordingView.h"

#include <cerrno>
#include <sstream>

int RecordingView::record(const std::string& call) {
    const bool held = pthread_mutex_trylock(mutex()) == EBUSY;
    if (!held) {
        pthread_mutex_unlock(mutex());
    }
    mTrace.push_back(held ? call + " locked" : call);
    if (onCall) {
        onCall();
    }
    return 0;
}

bool RecordingView::input(const char* name, int a, int b) {
    record(std::string(name) + "(" + std::to_string(a) + ", " + std::to_string(b) + ")");
    return true;
}

bool RecordingView::gesture(const char* name, double a, double b) {
    std::ostringstream call;
    call << name << "(" << a << ", " << b << ")";
    record(call.str());
    return true;
}

void RecordingView::handlePaint(unsigned int* frameBuffer) {
    frameBuffer[0] = 0xFF123456;
    record("handlePaint");
}

std::string RecordingView::getDocProperties() {
    record("getDocProperties");
    return "{ \"title\": \"the view's text\" }";
}

std::string RecordingView::doSearch(const char* text) {
    record(std::string("doSearch(") + text + ")");
    return "{ \"resultcount\": 3 }";
}
