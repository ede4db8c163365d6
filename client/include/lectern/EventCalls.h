// SPDX-License-Identifier: Apache-2.0
// The methods of the category "/events": documents' lives, and input that is
// answered once the view has had it. x and y are view pixels.
#pragma once

#include <lectern/Bus.h>

#include <optional>
#include <string>

#pragma GCC visibility push(default)

namespace lectern::events {

struct CreateRequest {
    std::string path; // absolute
    int width = 0;
    int height = 0;
    unsigned int frameBuffer = 0; // segment identifier
    int frameBufferSize = 0;      // bytes
    unsigned int state = 0;       // the segment of an earlier view of the document, or 0
    std::optional<std::string> password;
};

struct CreateReply {
    int docid = 0;
    int kind = 0;           // "doctype": 1 spreadsheet, 2 word-processing, 3 presentation
    unsigned int state = 0; // segment identifier, and address of the view's notifications
    std::string owner;      // unique bus name of the process that has the document
};

// Replies when the open has ended; how it ended, a queue record of id 8 tells.
// Given up, by its time-out or its stop token, it destroys what still opens.
Result<CreateReply> create(const Bus& bus, const CreateRequest& request, const CallLimits& limits);
// Not answered. owner: as "create" gave it; after a restart of the service its
// number is another document's.
Failure destroy(const Bus& bus, int docid, const std::string& owner = SERVICE_NAME);
Failure ping(const Bus& bus);

Failure handlePenDown(const Bus& bus, int docid, int x, int y, const CallLimits& limits = {});
Failure handlePenUp(const Bus& bus, int docid, int x, int y, const CallLimits& limits = {});
Failure handlePenMove(const Bus& bus, int docid, int x, int y, const CallLimits& limits = {});
Failure handleKeyDown(const Bus& bus, int docid, int key, int modifiers, const CallLimits& limits = {});
Failure handleKeyUp(const Bus& bus, int docid, int key, int modifiers, const CallLimits& limits = {});
Failure handleClick(const Bus& bus, int docid, int x, int y, const CallLimits& limits = {});
Failure handleDoubleClick(const Bus& bus, int docid, int x, int y, const CallLimits& limits = {});
// Finger velocity in pixels per second. The end of a glide is taken from the
// vertical axis, so a vertical velocity of 0 is sent as 1.
Failure handleFlick(const Bus& bus, int docid, int velocityX, int velocityY, const CallLimits& limits = {});

} // namespace lectern::events

#pragma GCC visibility pop
