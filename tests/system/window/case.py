# SPDX-License-Identifier: Apache-2.0
"""Runs the tests of a module; what cannot run on this machine makes ctest show the test as skipped."""
import sys
import unittest

SKIPPED = 77  # the exit status that CMake names in SKIP_RETURN_CODE


def main():
    """Exit status: 0, 1 after a failure, or 77 if a test was skipped and none failed."""
    program = unittest.main(module='__main__', exit=False, verbosity=2)
    for test, reason in program.result.skipped:
        print(f'skipped: {test.id()}: {reason}')
    if not program.result.wasSuccessful():
        sys.exit(1)
    sys.exit(SKIPPED if program.result.skipped else 0)
