// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/StateRecord.h"

// The System V segment that holds a view's state record, attached for the
// object's life. Its identifier is also the address of every notification
// about the view, which is why not every identifier will do.
//
// Who removes it: whoever hands the identifier to a client marks the segment
// for removal (IPC_RMID), so that it goes with its last attachment. A segment
// made here is marked by the destructor as well, before it detaches: marking
// twice is harmless, and one that nobody ever got to know leaves nothing
// behind. A segment that was given is only detached.
class StateSegment {
public:
    // Types up to this one are read from the queue by the service itself, and 0
    // means no segment.
    static constexpr unsigned int LAST_RESERVED_ID = 99;
    // Segments made here stay clear of the paint-done types too, which are
    // document identifiers plus 101.
    static constexpr int FIRST_OWN_ID = 4096;

    StateSegment() = default;
    ~StateSegment();
    StateSegment(const StateSegment&) = delete;
    StateSegment& operator=(const StateSegment&) = delete;

    // Both are called at most once with success, and leave the object without a
    // segment when they fail.

    // Attaches an existing segment; false when its identifier is reserved, it
    // is smaller than a record or cannot be attached for reading and writing.
    [[nodiscard]] bool attach(unsigned int id);
    // Makes a zeroed segment under the key ftok(path, project), or under none
    // when another has that key. False, after a line on standard error, when
    // the system gives no segment with a usable identifier.
    bool create(const char* path, int project);

    StateRecord* record() const { return mRecord; }
    // 0 while there is no segment.
    unsigned int id() const { return mId; }

private:
    bool map(int id);

    StateRecord* mRecord = nullptr;
    unsigned int mId = 0;
    bool mMade = false;
};
