// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace lectern::engine {

// The packets between the service and the fork server (base/Packet.h). The first
// character tells the kind.
//
// The service asks for an engine: FORK, then the path of the engine's folder, with two
// files: the engine's end of the connection for its calls, and its folder's lock. The
// fork server answers, once its suite is ready and in the order of the requests, with
// CONFINED or UNCONFINED and a pidfd of the engine, or with FAILED and no file.
constexpr char FORK = 'F';
constexpr char CONFINED = 'c';   // the engine can write to files in its folder only
constexpr char UNCONFINED = 'u'; // this kernel has no Landlock
constexpr char FAILED = 'f';

} // namespace lectern::engine
