// SPDX-License-Identifier: Apache-2.0
#pragma once

// What liblectern-engine.so offers to the modules; the rest stays hidden.
#define LECTERN_ENGINE_EXPORT __attribute__((visibility("default")))
