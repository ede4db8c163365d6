# SPDX-License-Identifier: Apache-2.0
"""Reads the X server's clipboard."""
import select
import time

from Xlib import X, display


def clipboard_text(name, seconds):
    """The text in the clipboard of a display; '' if nobody offers text in time. Long texts
    that come in pieces (INCR, above about 250 kB) are not read."""
    own = display.Display(name)
    try:
        window = own.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        atoms = [own.intern_atom(atom) for atom in ('CLIPBOARD', 'UTF8_STRING', 'LECTERN_TEST')]
        window.convert_selection(*atoms, X.CurrentTime)
        own.flush()
        deadline = time.monotonic() + seconds
        while time.monotonic() < deadline:
            select.select([own], [], [], deadline - time.monotonic())
            while own.pending_events():
                happened = own.next_event()
                if happened.type == X.SelectionNotify:
                    answer = window.get_full_property(atoms[2], X.AnyPropertyType) if happened.property else None
                    return bytes(answer.value).decode() if answer and answer.format == 8 else ''
        return ''
    finally:
        own.close()
