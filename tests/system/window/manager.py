# SPDX-License-Identifier: Apache-2.0
"""A window manager for one screen of a small device: every window lies at the top left
corner, the newest has the keyboard, and a window may fill the screen."""
import threading

from Xlib import X, Xatom, display, error
from Xlib.protocol import event


class WindowManager:
    """Runs on a thread of its own until close()."""

    def __init__(self, name):
        self.display = display.Display(name)  # of the thread
        self.others = display.Display(name)   # of its users; a connection of Xlib's cannot be shared
        self.root = self.display.screen().root
        self.atoms = {name: self.display.intern_atom(name) for name in (
            '_NET_SUPPORTED', '_NET_SUPPORTING_WM_CHECK', '_NET_WM_NAME', '_NET_WM_STATE', '_NET_ACTIVE_WINDOW',
            '_NET_WM_STATE_FULLSCREEN', '_NET_WM_STATE_FOCUSED', '_NET_WM_WINDOW_TYPE', 'UTF8_STRING',
            'WM_PROTOCOLS', 'WM_DELETE_WINDOW', '_LECTERN_END')}
        self.windows = []  # mapped ones, the newest last
        self.sizes = {}    # by window: what it has when it does not fill the screen
        for connection in (self.display, self.others):
            connection.set_error_handler(lambda *_: None)  # windows may go at any time
        self._announce()
        self.root.change_attributes(event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.display.sync()
        self.thread = threading.Thread(target=self._run, daemon=True)
        self.thread.start()

    def _announce(self):
        """Tells toolkits that there is a manager, and what it can do."""
        self.check = self.root.create_window(-10, -10, 1, 1, 0, X.CopyFromParent)
        for window in (self.root, self.check):
            window.change_property(self.atoms['_NET_SUPPORTING_WM_CHECK'], Xatom.WINDOW, 32, [self.check.id])
        self.check.change_property(self.atoms['_NET_WM_NAME'], self.atoms['UTF8_STRING'], 8, b'test')
        self.root.change_property(self.atoms['_NET_SUPPORTED'], Xatom.ATOM, 32, [
            atom for name, atom in self.atoms.items() if name.startswith(('_NET_WM_STATE', '_NET_ACTIVE'))])

    def _run(self):
        handlers = {X.MapRequest: self._map, X.ConfigureRequest: self._configure, X.DestroyNotify: self._forget,
                    X.UnmapNotify: self._forget, X.ClientMessage: self._message}
        while True:
            try:
                happened = self.display.next_event()
            except error.ConnectionClosedError:
                return
            if happened.type == X.ClientMessage and happened.client_type == self.atoms['_LECTERN_END']:
                return
            if happened.type in handlers:
                handlers[happened.type](happened)
            self.display.flush()

    def _map(self, request):
        window = request.window
        window.configure(x=0, y=0)
        window.map()
        self.windows = [other for other in self.windows if other != window] + [window]
        self._state(window, [])
        self._focus()

    def _configure(self, request):
        changes = {name: getattr(request, name) for name, bit in (
            ('width', X.CWWidth), ('height', X.CWHeight), ('border_width', X.CWBorderWidth)) if request.value_mask & bit}
        request.window.configure(x=0, y=0, **changes)

    def _forget(self, notice):
        self.windows = [other for other in self.windows if other != notice.window]
        self._focus()

    def _focus(self):
        for window in self.windows[-1:]:
            window.set_input_focus(X.RevertToParent, X.CurrentTime)
            self.root.change_property(self.atoms['_NET_ACTIVE_WINDOW'], Xatom.WINDOW, 32, [window.id])

    def _state(self, window, names):
        states = [self.atoms[f'_NET_WM_STATE_{name}'] for name in ('FOCUSED', *names)]
        window.change_property(self.atoms['_NET_WM_STATE'], Xatom.ATOM, 32, states)

    def _message(self, message):
        if message.client_type != self.atoms['_NET_WM_STATE']:
            return
        action, *properties = message.data[1][:3]
        if self.atoms['_NET_WM_STATE_FULLSCREEN'] not in properties:
            return
        window = message.window
        fill = action == 1 or (action == 2 and window not in self.sizes)
        if fill:
            now = window.get_geometry()
            self.sizes.setdefault(window, (now.width, now.height))
            screen = self.display.screen()
            self._state(window, ['FULLSCREEN'])
            window.configure(x=0, y=0, width=screen.width_in_pixels, height=screen.height_in_pixels, stack_mode=X.Above)
        elif window in self.sizes:
            width, height = self.sizes.pop(window)
            self._state(window, [])
            window.configure(x=0, y=0, width=width, height=height)

    def _newest(self):
        """The newest window, for the other threads."""
        return self.others.create_resource_object('window', self.windows[-1].id)

    def _send(self, window, kind, *numbers):
        window.send_event(event.ClientMessage(window=window, client_type=self.atoms[kind],
                                              data=(32, [*numbers, 0, 0, 0, 0, 0][:5])))
        self.others.sync()

    def resize(self, width, height):
        """Gives the newest window another size, as turning a device does."""
        self._newest().configure(x=0, y=0, width=width, height=height)
        self.others.sync()

    def close_window(self):
        """Asks the newest window to close."""
        self._send(self._newest(), 'WM_PROTOCOLS', self.atoms['WM_DELETE_WINDOW'])

    def close(self):
        """Ends the thread."""
        self._send(self.others.create_resource_object('window', self.check.id), '_LECTERN_END')
        self.thread.join()
        self.display.close()
        self.others.close()
