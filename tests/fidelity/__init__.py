# SPDX-License-Identifier: Apache-2.0
"""Compares what Lectern shows of documents with what the files and the office suite say."""
