# SPDX-License-Identifier: Apache-2.0
"""The package behind scripts/bench. rows.py lists what is measured; a new row goes there."""
