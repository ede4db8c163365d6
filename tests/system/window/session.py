# SPDX-License-Identifier: Apache-2.0
"""A desktop session of a test's own: a display with a window manager, a D-Bus session with
the accessibility bus and the document service, and a home in a temporary folder.

    with Session() as session:
        viewer = session.start('lectern-view', FILE)
        button = session.find('push button', 'Open')
        button.click()

A process has one session at a time, because the accessibility library finds its bus once.
The end of a session ends everything that it started, also after a failure."""
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import unittest

import window.namespace  # noqa: F401 pylint: disable=unused-import # before any thread starts
from window.clipboard import clipboard_text
from window.display import Display, end_with_parent
from window.manager import WindowManager
from window.processes import descendants, end_descendants
from window.tree import Tree
from window.wayland import Compositor

SOURCE = pathlib.Path(__file__).resolve().parents[3]
BUILD = pathlib.Path(os.environ.get('LECTERN_BUILD', SOURCE / 'build/release'))

BUS_CONFIGURATION = '''<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path={folder}/bus</listen>
  <servicedir>{folder}/services</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
'''

SETTINGS = '''[Settings]
gtk-enable-animations={animations}
gtk-cursor-blink=0
gtk-font-name=Sans {points}
gtk-xft-antialias=1
gtk-xft-hinting=1
gtk-xft-hintstyle=hintslight
gtk-xft-rgba=none
gtk-decoration-layout={buttons}
'''

# Where nothing composes windows, GTK draws a border as its own; places in the window would not be those on the screen.
STYLE = 'window.solid-csd { padding: 0; border: none; box-shadow: none; }'


class Session:
    """See above. width, height: the screen's, in pixels; 1920 are 508 mm, so that it has 96 dpi exactly. wayland: a Wayland display, where every
    window fills the screen, without `manager` and clipboard(). text_scale: the size of letters
    of the desktop, 1.0 is usual. buttons: those in title bars, in GTK's words. environment: more variables for all programs."""

    def __init__(self, width=1920, height=1920, *, wayland=False, dark=False, text_scale=1.0, animations=False,
                 buttons=':close', environment=None):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix='lectern-window-'))
        self.programs = []
        self.tree = self.display = self.manager = self.screen = self.touch = self.bus = None
        self._kept = dict(os.environ)
        try:
            for name in ('home', 'home/.config/gtk-4.0', 'home/.local/state', 'run', 'services'):
                (self.folder / name).mkdir(mode=0o700, parents=True, exist_ok=True)
            (self.folder / 'home/.config/gtk-4.0/settings.ini').write_text(SETTINGS.format(
                animations=int(animations), points=round(11 * text_scale),
                buttons=buttons), encoding='utf-8')
            (self.folder / 'home/.config/gtk-4.0/gtk.css').write_text(STYLE, encoding='utf-8')
            self._environment(dark, environment or {})
            self._start_bus()
            self.tree = Tree(self)
            if wayland:
                self._start_wayland(width, height)
            else:
                self._start_display(width, height)
        except BaseException:
            self.close()
            raise

    def _start_display(self, width, height):
        self.display = Display(self.folder, width, height)
        os.environ['DISPLAY'] = self.display.name
        self.manager = WindowManager(self.display.name)
        self.screen, self.touch = self.display.screen, self.display.touch

    def _start_wayland(self, width, height):
        missing = [name for name in ('mutter', 'weston', 'weston-screenshooter', 'pipewire') if not shutil.which(name)]
        if missing:
            raise unittest.SkipTest(f'{" and ".join(missing)} not installed')
        self.display = Compositor(self, width, height)
        self.screen, self.touch = self.display.screen, self.display.touch

    def _environment(self, dark, more):
        """The environment of this process and of all that it starts: nothing of the machine's session."""
        for name in list(os.environ):
            if name.startswith(('XDG_', 'DBUS_', 'WAYLAND_', 'GTK_', 'GDK_', 'GSK_', 'ADW_', 'AT_SPI_', 'LECTERN_')):
                if name != 'LECTERN_BUILD':
                    del os.environ[name]
        home = self.folder / 'home'
        os.environ.update({
            'HOME': str(home), 'XDG_RUNTIME_DIR': str(self.folder / 'run'), 'TMPDIR': str(self.folder),
            'XDG_DATA_HOME': str(home / '.local/share'), 'XDG_CONFIG_HOME': str(home / '.config'),
            'XDG_STATE_HOME': str(home / '.local/state'), 'XDG_CACHE_HOME': str(home / '.cache'),
            'XDG_DATA_DIRS': f'{BUILD}/share:/usr/local/share:/usr/share', 'XDG_CONFIG_DIRS': '/etc/xdg',
            'DBUS_SESSION_BUS_ADDRESS': f'unix:path={self.folder}/bus',
            'LANG': 'C.UTF-8', 'LC_ALL': 'C.UTF-8', 'GDK_BACKEND': 'x11', 'GSK_RENDERER': 'cairo',
            'GSETTINGS_BACKEND': 'memory', 'GTK_A11Y': 'atspi', 'NO_AT_BRIDGE': '0',
            'ADW_DEBUG_COLOR_SCHEME': 'prefer-dark' if dark else 'prefer-light',
            'PATH': f'{BUILD}/bin:{os.environ["PATH"]}', 'LD_LIBRARY_PATH': f'{BUILD}/lib',
            'GI_TYPELIB_PATH': f'{BUILD}/introspection', 'PYTHONDONTWRITEBYTECODE': '1'})
        os.environ.update(more)

    def _start_bus(self):
        services = {'com.kestrel.office': f'{BUILD}/bin/lectern-service', 'org.a11y.Bus': '/usr/libexec/at-spi-bus-launcher'}
        for name, program in services.items():
            self.offer(name, program)
        configuration = self.folder / 'bus.conf'
        configuration.write_text(BUS_CONFIGURATION.format(folder=self.folder), encoding='utf-8')
        with self._log('bus') as log:
            self.bus = subprocess.Popen(  # pylint: disable=subprocess-popen-preexec-fn
                ['dbus-daemon', f'--config-file={configuration}', '--nofork', '--print-address=1'],
                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=log, preexec_fn=end_with_parent)
        if not self.bus.stdout.readline():
            raise RuntimeError('the bus did not start: ' + self.log('bus'))

    def offer(self, name, command):
        """Lets the bus start a program when its name is first called; later ones need a reload of the bus."""
        (self.folder / f'services/{name}.service').write_text(
            f'[D-BUS Service]\nName={name}\nExec={command}\n', encoding='utf-8')

    def _log(self, name):
        return open(self.folder / f'{name}.log', 'ab')  # pylint: disable=consider-using-with

    def log(self, name='bus'):
        """What a program wrote, by its number (program.log) or 'bus': the bus and what it started."""
        return (self.folder / f'{name}.log').read_text('utf-8', 'replace')

    def start(self, program, *arguments, environment=None):
        """Starts a program of the build tree, or another one by its path or name. The returned Popen has
        `log`, the name for log()."""
        path = BUILD / 'bin' / program
        name = f'{pathlib.Path(program).name}-{len(self.programs)}'
        with self._log(name) as log:
            started = subprocess.Popen(  # pylint: disable=consider-using-with,subprocess-popen-preexec-fn
                [str(path if path.exists() else program), *map(str, arguments)], stdin=subprocess.DEVNULL,
                stdout=log, stderr=log, env=dict(os.environ, **(environment or {})), preexec_fn=end_with_parent,
                cwd=self.folder)
        started.log = name
        self.programs.append(started)
        return started

    def wait(self, condition, what, seconds=60):
        """Returns the condition's value as soon as it is true; see Tree.wait()."""
        return self.tree.wait(condition, what, seconds)

    def find(self, role, name=None, **more):
        """Waits for the accessible; see Tree.find()."""
        return self.tree.find(role, name, **more)

    def clipboard(self, seconds=5):
        """The text in the clipboard; '' if there is none."""
        return clipboard_text(self.display.name, seconds)

    def copy_of(self, path):
        """A copy of a document in the session's home, whose timestamps and neighbours are the test's own."""
        return pathlib.Path(shutil.copy(path, self.folder / 'home'))

    def service(self):
        """The process id of the document service; None while it does not run."""
        return next(iter(descendants('lectern-service')), None)

    def end(self, program):
        """Ends a program that start() returned; returns its exit status."""
        if program.poll() is None:
            program.send_signal(signal.SIGTERM)
        try:
            return program.wait(10)
        except subprocess.TimeoutExpired:
            program.kill()
            return program.wait()

    def close(self):
        """Ends all programs and removes the folder."""
        for program in reversed(self.programs):
            self.end(program)
        for part in (self.tree, self.manager, self.display):
            if part:
                part.close()
        if self.bus:
            self.bus.stdout.close()
            self.end(self.bus)
        end_descendants()
        os.environ.clear()
        os.environ.update(self._kept)
        shutil.rmtree(self.folder, ignore_errors=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()
