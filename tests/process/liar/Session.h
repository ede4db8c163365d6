// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern::test {

// The service as a library, without a bus, with Lectern's own modules and the lying
// engine. Call once: enters a new IPC namespace and sets the environment. Ends the
// program on failure.
void startServiceWithLiars(const std::string& lyingEngine);

// A client's session: opens documents of all kinds whose engines lie as the bytes tell,
// calls methods and sends records that the bytes choose, and closes the documents.
// `folder` gets the files.
void runSession(const std::string& folder, const std::string& bytes);

} // namespace lectern::test
