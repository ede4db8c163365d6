# SPDX-License-Identifier: Apache-2.0
"""A Wayland display without a screen: weston, which shows one window at a time and can be
asked for pictures, inside of mutter, which has a touch screen and a keyboard that programs
can use. Both paint in software."""
import os
import re
import subprocess

from PIL import Image
from Xlib import XK
from gi.repository import Gio, GLib

from window.fingers import Fingers

DESKTOP, CAST = 'org.gnome.Mutter.RemoteDesktop', 'org.gnome.Mutter.ScreenCast'
PROPERTIES = 'org.freedesktop.DBus.Properties'
MODIFIERS = {'Ctrl': 'Control_L', 'Shift': 'Shift_L', 'Alt': 'Alt_L'}


def path_of(name):
    """The bus path of one of mutter's services."""
    return '/' + name.replace('.', '/')


class RemoteInput:
    """mutter's remote desktop: the calls of one session."""

    def __init__(self, address):
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        self.bus = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        self.session = self._call(DESKTOP, path_of(DESKTOP), DESKTOP, 'CreateSession').unpack()[0]
        number = self._call(DESKTOP, self.session, PROPERTIES, 'Get',
                            GLib.Variant('(ss)', (f'{DESKTOP}.Session', 'SessionId'))).unpack()[0]
        linked = {'remote-desktop-session-id': GLib.Variant('s', number)}
        cast = self._call(CAST, path_of(CAST), CAST, 'CreateSession', GLib.Variant('(a{sv})', (linked,))).unpack()[0]
        # Touches are sent to a stream: that of the only monitor.
        self.stream = self._call(CAST, cast, f'{CAST}.Session', 'RecordMonitor',
                                 GLib.Variant('(sa{sv})', ('Meta-0', {}))).unpack()[0]
        self.send('Start')

    def _call(self, name, path, interface, method, arguments=None):
        return self.bus.call_sync(name, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, 20000, None)

    def send(self, method, arguments=None):
        """Calls a method of the session."""
        self._call(DESKTOP, self.session, f'{DESKTOP}.Session', method, arguments)


class WaylandTouch(Fingers):
    """mutter's touch screen."""

    def __init__(self, remote):
        self.remote = remote

    def down(self, x, y, finger=0):
        self.remote.send('NotifyTouchDown', GLib.Variant('(sudd)', (self.remote.stream, finger, x, y)))

    def move(self, x, y, finger=0):
        self.remote.send('NotifyTouchMotion', GLib.Variant('(sudd)', (self.remote.stream, finger, x, y)))

    def up(self, x, y, finger=0):
        self.remote.send('NotifyTouchUp', GLib.Variant('(u)', (finger,)))


class WaylandScreen:
    """weston's pictures and mutter's keyboard; see screen.Screen."""

    def __init__(self, remote, folder):
        self.remote = remote
        self.folder = folder

    def picture(self, box=None):
        """What is on the screen, as an RGB image."""
        subprocess.run(['weston-screenshooter'], cwd=self.folder, check=True, stdout=subprocess.DEVNULL, timeout=20)
        path = next(self.folder.glob('wayland-screenshot-*.png'))
        with Image.open(path) as image:
            picture = image.convert('RGB').crop(box or (0, 0, *image.size))
        path.unlink()
        return picture

    def key(self, combination):
        """Presses keys by their X names, such as 'Ctrl+f' or 'Page_Down'."""
        codes = [XK.string_to_keysym(MODIFIERS.get(name, name)) for name in combination.split('+')]
        for pressed, order in ((True, codes), (False, codes[::-1])):
            for code in order:
                self.remote.send('NotifyKeyboardKeysym', GLib.Variant('(ub)', (code, pressed)))


class Compositor:
    """The two of them, running."""

    missing = ''

    def __init__(self, session, width, height):
        self.session = session
        run = session.folder / 'run'
        session.start('pipewire')
        session.start('mutter', '--headless', '--wayland', '--no-x11', '--virtual-monitor', f'{width}x{height}',
                      '--wayland-display', 'outer')
        session.wait((run / 'outer').exists, 'a display of mutter')
        weston = session.start('weston', '--backend=wayland-backend.so', '--display=outer', '--use-pixman', '--fullscreen',
                               '--shell=kiosk-shell.so', '--debug', '--socket=inner', '--idle-time=0', '--no-config',
                               environment={'WAYLAND_DEBUG': 'client'})
        session.wait((run / 'inner').exists, 'a display of weston')
        self.remote = RemoteInput(os.environ['DBUS_SESSION_BUS_ADDRESS'])
        self.touch = WaylandTouch(self.remote)
        self.screen = WaylandScreen(self.remote, session.folder)
        os.environ.update({'WAYLAND_DISPLAY': 'inner', 'GDK_BACKEND': 'wayland'})
        # mutter has a touch screen only from the first touch on, and weston's window grows for a while.
        probe = width - 10, height - 10
        session.wait(lambda: self._felt(weston, *probe), f'a touch of weston at {probe}')
        # These three end after all others.
        self.programs, session.programs = session.programs, []

    def _felt(self, weston, x, y):
        """Taps, and returns whether weston has felt a tap there, which its log of messages tells."""
        self.touch.tap(x, y)
        return re.search(rf'wl_touch@\d+\.down\(.*, {x}\.0+, {y}\.0+\)', self.session.log(weston.log))

    def close(self):
        """Ends the programs, the remote desktop first, because mutter 43 does not end while one runs."""
        self.remote.send('Stop')
        for program in reversed(self.programs):
            self.session.end(program)
