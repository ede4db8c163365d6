# SPDX-License-Identifier: Apache-2.0
"""Processes: their children, and what they use."""
import os
import pathlib
import signal
import time


def children(pid):
    """The process ids of the children, by any thread."""
    found = []
    for task in pathlib.Path(f'/proc/{pid}/task').glob('*/children'):
        try:
            found += map(int, task.read_text(encoding='ascii').split())
        except (FileNotFoundError, ProcessLookupError):
            pass
    return found


def descendants(name, pid=None):
    """The process ids of this process's living descendants that run a program of this name."""
    found = []
    for child in children(pid or os.getpid()):
        try:
            program = pathlib.Path(f'/proc/{child}/cmdline').read_bytes().split(b'\0')[0].decode()
        except (FileNotFoundError, ProcessLookupError):
            continue
        found += ([child] if os.path.basename(program) == name else []) + descendants(name, child)
    return found


def end_descendants():
    """Ends all descendants of this process; orphans come to it as its own children."""
    deadline = time.monotonic() + 5
    while True:
        for pid in children(os.getpid()):
            os.kill(pid, signal.SIGTERM if time.monotonic() < deadline else signal.SIGKILL)
        try:
            if os.waitpid(-1, os.WNOHANG) == (0, 0):
                time.sleep(0.01)  # they are ending, and there is no event for "the last one has"
        except ChildProcessError:
            return


def private_memory(pid):
    """Private memory in bytes."""
    rollup = pathlib.Path(f'/proc/{pid}/smaps_rollup').read_text(encoding='ascii')
    return sum(int(line.split()[1]) * 1024 for line in rollup.splitlines() if line.startswith('Private_'))


def wake_ups(pid):
    """Voluntary context switches of each living thread, by its id."""
    found = {}
    for task in pathlib.Path(f'/proc/{pid}/task').iterdir():
        status = (task / 'status').read_text(encoding='ascii')
        found[task.name] = int(status.split('\nvoluntary_ctxt_switches:')[1].split()[0])
    return found
