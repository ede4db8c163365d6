/* SPDX-License-Identifier: Apache-2.0 */
#pragma once

#include <lectern-glib/lectern-document.h>
#include <lectern-glib/lectern-error.h>
#include <lectern-glib/lectern-service.h>
#include <lectern-glib/lectern-types.h>
#include <lectern-glib/lectern-version.h>
