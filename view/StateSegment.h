// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/StateRecord.h"

// The System V shared-memory segment with a view's state record. It is attached
// until the object is destroyed. Its identifier is also the queue type of all
// notifications about the view, so some identifiers cannot be used.
//
// Removal: the code that tells a client the identifier marks the segment for removal
// (IPC_RMID), and the system removes it after the last detach. The destructor also
// marks a segment that create() made, before it detaches, so that a segment that no
// client learned of is removed too; marking twice is harmless. A segment of attach()
// is only detached.
class StateSegment {
public:
    // Identifiers up to this one cannot be used: the service itself reads these types
    // from the queue, and 0 means "no segment".
    static constexpr unsigned int LAST_RESERVED_ID = 99;
    // The lowest identifier of segments made by create(). It also avoids the types of
    // paint-done records, which are docid + 101.
    static constexpr int FIRST_OWN_ID = 4096;

    StateSegment() = default;
    ~StateSegment();
    StateSegment(const StateSegment&) = delete;
    StateSegment& operator=(const StateSegment&) = delete;

    // Only one call of attach() or create() may succeed. A failed call leaves the
    // object without a segment.

    // Attaches an existing segment. False if its identifier is reserved, it is not
    // exactly as large as a record, it belongs to another user, which is reported to
    // standard error and the system log, or it cannot be attached for reading and
    // writing.
    [[nodiscard]] bool attach(unsigned int id);
    // Creates and attaches a zeroed segment with the key ftok(path, project), or
    // without a key if another segment has it. If the system provides no segment with
    // a usable identifier, writes a line to standard error and returns false.
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
