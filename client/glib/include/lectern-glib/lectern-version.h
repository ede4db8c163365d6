/* SPDX-License-Identifier: Apache-2.0 */
#pragma once

#include <glib-object.h>

/* Marks what the library exports. */
#define LECTERN_EXPORT __attribute__((visibility("default")))
