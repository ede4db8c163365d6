// SPDX-License-Identifier: Apache-2.0
// The calls that the library makes by itself for its views: those that open, resize and
// close them, and input that the service answers.
#pragma once

#include <lectern/Bus.h>
#include <lectern/Call.h>
#include <lectern/FrameBuffer.h>

#include <optional>
#include <string>

namespace lectern::events {

struct CreateRequest {
    std::string path; // absolute, UTF-8; its extension tells the kind
    int width = 0;    // of the view in pixels, 1 to 16,384
    int height = 0;
    unsigned int frameBuffer = 0; // segment identifier, not 0
    int frameBufferSize = 0;      // bytes, at least width * height * 4
    unsigned int state = 0;       // state segment of an earlier view of the document, or 0
    std::optional<std::string> password;
    // Asks for touch manners; without them the service does not hear the two others.
    bool touch = false;
    std::optional<double> dpi = {};       // of the screen, 36 to 1200; 72 by default
    std::optional<std::string> kind = {}; // "word", "excel" or "ppt"; by default the extension tells it
};

struct CreateReply {
    int docid = 0;
    int kind = 0;           // "doctype": 1 spreadsheet, 2 word-processing, 3 presentation
    unsigned int state = 0; // identifier of the state segment, and queue type of notifications
    std::string owner;      // unique bus name of the process that has the document
};

// Opens a document. Returns when the open has ended; with touch manners, when it has
// begun. Success does not mean that the document opened: a queue record with id 8
// reports that, and the docid must be destroyed in either case. After a time-out or a cancellation, the
// document is destroyed as soon as the late reply arrives.
Result<CreateReply> create(const Bus& bus, const CreateRequest& request, const CallLimits& limits);
// Closes a document. Sent without a reply. owner: CreateReply::owner. After a
// restart of the service the same docid may be another client's document.
Failure destroy(const Bus& bus, int docid, const std::string& owner = SERVICE_NAME);
// Keeps the service from stopping because it is idle. Sent without a reply.
Failure ping(const Bus& bus);

// The service replies after the view has handled them. x and y: view pixels.
Call<void> handleClick(int x, int y);
Call<void> handleDoubleClick(int x, int y);
// Velocity of the finger in pixels per second. The service takes the end of a
// glide from the vertical axis, so a vertical velocity of 0 is sent as 1.
Call<void> handleFlick(int velocityX, int velocityY);

} // namespace lectern::events

namespace lectern::touch {

// Gives the view another size and frame buffer.
Call<void> resize(const FrameBuffer& frame);
// Gives up the open of a document. Sent without waiting for the reply. owner:
// CreateReply::owner. The document must still be destroyed.
Failure cancel(const Bus& bus, int docid, const std::string& owner = SERVICE_NAME);

} // namespace lectern::touch
