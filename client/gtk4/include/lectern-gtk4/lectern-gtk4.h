/* SPDX-License-Identifier: Apache-2.0 */
#pragma once

#include <lectern-gtk4/lectern-view.h>
