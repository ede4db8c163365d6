# SPDX-License-Identifier: Apache-2.0
"""Moves this process into a System V IPC namespace of its own when it is imported: other
services on the machine do not disturb the tests, and nothing is left behind. Makes it the
parent of all orphans among its descendants, too, so that it can end them."""
import ctypes
import os

NEW_IPC, NEW_USER = 0x08000000, 0x10000000  # CLONE_NEWIPC, CLONE_NEWUSER
CHILD_SUBREAPER = 36                        # PR_SET_CHILD_SUBREAPER


def _enter():
    libc = ctypes.CDLL(None, use_errno=True)
    user, group = os.getuid(), os.getgid()
    if libc.unshare(NEW_IPC) != 0:
        # Without privileges it takes a user namespace, in which everyone stays who he is.
        if libc.unshare(NEW_IPC | NEW_USER) != 0:
            raise OSError(ctypes.get_errno(), 'the tests cannot have an IPC namespace of their own')
        for name, text in (('setgroups', 'deny'), ('uid_map', f'{user} {user} 1'), ('gid_map', f'{group} {group} 1')):
            with open(f'/proc/self/{name}', 'w', encoding='ascii') as file:
                file.write(text)
    libc.prctl(CHILD_SUBREAPER, 1, 0, 0, 0)


_enter()
