// SPDX-License-Identifier: Apache-2.0
#pragma once

// Marks what liblectern-engine.so exports to the modules; the rest is hidden.
#define LECTERN_ENGINE_EXPORT __attribute__((visibility("default")))
