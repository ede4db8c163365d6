# SPDX-License-Identifier: Apache-2.0
"""An X server of a test's own: Xorg with the dummy driver for the screen and the
inputtest driver for a touch screen, or Xvfb, without touch, where these are missing."""
import ctypes
import os
import pathlib
import shutil
import subprocess

from window.screen import Screen
from window.touch import TouchScreen

MODULES = pathlib.Path('/usr/lib/xorg/modules')
PIECES = [MODULES / 'drivers/dummy_drv.so', MODULES / 'input/inputtest_drv.so']

CONFIGURATION = '''
Section "ServerFlags"
    Option "AutoAddDevices" "false"
    Option "DontVTSwitch" "true"
    Option "BlankTime" "0"
EndSection
Section "Device"
    Identifier "card"
    Driver "dummy"
    VideoRam 65536
EndSection
Section "Monitor"
    Identifier "monitor"
    HorizSync 1-2000
    VertRefresh 1-200
    Modeline "mode" {clock} {width} {h1} {h2} {h3} {height} {v1} {v2} {v3}
EndSection
Section "Screen"
    Identifier "screen"
    Device "card"
    Monitor "monitor"
    DefaultDepth 24
    SubSection "Display"
        Depth 24
        Modes "mode"
        Virtual {width} {height}
    EndSubSection
EndSection
Section "InputDevice"
    Identifier "touch"
    Driver "inputtest"
    Option "SocketPath" "{folder}/touch"
    Option "DeviceType" "Touch"
    Option "TouchCount" "5"
EndSection
Section "InputDevice"
    Identifier "pointer"
    Driver "inputtest"
    Option "SocketPath" "{folder}/pointer"
    Option "DeviceType" "PointerAbsolute"
EndSection
Section "InputDevice"
    Identifier "keyboard"
    Driver "inputtest"
    Option "SocketPath" "{folder}/keyboard"
    Option "DeviceType" "Keyboard"
EndSection
Section "ServerLayout"
    Identifier "layout"
    Screen "screen"
    InputDevice "pointer" "CorePointer"
    InputDevice "keyboard" "CoreKeyboard"
    InputDevice "touch" "SendCoreEvents"
EndSection
'''


def configuration(folder, width, height):
    """60 pictures a second: the clock in MHz is pixels of a whole picture times 60."""
    h3, v3 = width + 48, height + 10
    return CONFIGURATION.format(folder=folder, width=width, height=height, clock=h3 * v3 * 60 / 1e6,
                                h1=width + 16, h2=width + 32, h3=h3, v1=height + 1, v2=height + 2, v3=v3)


def end_with_parent():
    """For preexec_fn: the child gets SIGTERM when this process dies."""
    ctypes.CDLL(None).prctl(1, 15)  # PR_SET_PDEATHSIG


class Display:
    """A running X server. `touch` is None where only Xvfb is installed; `missing` says why."""

    def __init__(self, folder, width, height):
        self.folder = folder
        self.width, self.height = width, height
        self.missing = ''.join(f'{piece} is missing; ' for piece in PIECES if not piece.exists())
        if not shutil.which('Xorg'):
            self.missing += 'Xorg is missing; '
        self.process, self.number = self._start(self._xvfb() if self.missing else self._xorg())
        self.name = f':{self.number}'
        self.screen = Screen(self.name)
        self.touch = None if self.missing else TouchScreen(f'{folder}/touch', width, height)

    def _xorg(self):
        path = self.folder / 'xorg.conf'
        path.write_text(configuration(self.folder, self.width, self.height), encoding='utf-8')
        return ['Xorg', '-config', str(path), '-logfile', str(self.folder / 'xorg.log'), '-novtswitch', '-sharevts']

    def _xvfb(self):
        return ['Xvfb', '-screen', '0', f'{self.width}x{self.height}x24']

    def _start(self, command):
        """Returns the process and the number of the display, which the server writes when it
        listens. Numbers from 90 on: a free one is found by the server."""
        readable, writable = os.pipe()
        log = open(self.folder / 'display.log', 'wb')  # pylint: disable=consider-using-with
        process = subprocess.Popen(  # pylint: disable=consider-using-with,subprocess-popen-preexec-fn
            command + ['-displayfd', str(writable), '-noreset', '-nolisten', 'tcp', '-dpi', '96'], pass_fds=[writable],
            stdin=subprocess.DEVNULL, stdout=log, stderr=log, preexec_fn=end_with_parent)
        log.close()
        os.close(writable)
        with os.fdopen(readable) as pipe:
            number = pipe.readline().strip()
        if not number:
            process.wait()
            raise RuntimeError(f'{command[0]} did not start:\n' + (self.folder / 'display.log').read_text('utf-8', 'replace'))
        return process, number

    def close(self):
        """Ends the server; it removes its sockets and locks itself."""
        self.screen.close()
        if self.touch:
            self.touch.close()
        self.process.terminate()
        self.process.wait()
