// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace lectern::engine {

// The packets between the service and the fork server (base/Packet.h). The first
// character tells the kind.
//
// The service asks for an engine: FORK, then the path of the engine's folder, with three
// files: the engine's end of the connection for its calls, its folder's lock, and the
// document, the only file of a user that the engine will be able to open. The fork server
// answers, once its suite is ready and in the order of the requests, with FORKED and a
// pidfd of the engine, or with FAILED and no file.
constexpr char FORK = 'F';
constexpr char FORKED = 'e';
constexpr char FAILED = 'f';

} // namespace lectern::engine
