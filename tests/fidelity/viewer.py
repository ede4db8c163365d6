# SPDX-License-Identifier: Apache-2.0
"""Lectern, through the program fidelity_viewer, which holds a service of its own."""
import dataclasses
import json
import os
import pathlib
import select
import subprocess
import time

import numpy

ENGINE = 'lectern-engine'
LOST_CODES = (9, 10)  # of rendering modules: exceeded its limit, engine ended
GRACE_SECONDS = 10    # the service answers at its limit at the latest


class ViewerFailed(Exception):
    """Lectern reported an error. `lost` when the engine or the service is gone."""

    def __init__(self, text: str, lost: bool) -> None:
        super().__init__(text)
        self.lost = lost


@dataclasses.dataclass
class Frame:
    pixels: numpy.ndarray  # rows of pixels of red, green and blue
    x: int                 # the view's top left corner in the document
    y: int


class Viewer:
    """Views one document at a time. Numbers of sheets and slides count from 0."""

    def __init__(self, program: pathlib.Path) -> None:
        self._program = program
        self._process: subprocess.Popen[bytes] | None = None
        self._size = (0, 0)
        self._seconds = 60.0

    def open(self, path: pathlib.Path, width: int, height: int, seconds: float) -> None:
        self._start()
        self._size = (width, height)
        self._seconds = seconds
        self._ask('open', file=str(path.resolve()), width=width, height=height)

    def close_document(self) -> None:
        self._ask('close')

    def paint(self) -> Frame:
        reply, data = self._ask('paint')
        width, height = self._size
        pixels = numpy.frombuffer(data, numpy.uint8).reshape(height, width, 4)[:, :, 2::-1]
        return Frame(pixels, reply['x'], reply['y'])

    def search(self, text: str) -> int:
        return self._ask('search', text=text)[0]['hits']

    def end_search(self) -> None:
        self._ask('endSearch')

    def scroll(self, x: int, y: int) -> None:
        """Moves the view towards a point of the document, as far as the document reaches."""
        self._ask('scroll', x=x, y=y)

    def show_slide(self, number: int) -> None:
        self._ask('slide', number=number)

    def slide_count(self) -> int:
        return self._ask('slides')[0]['slides']

    def copied_columns(self, first_x: int, last_x: int, y: int, file: pathlib.Path) -> str:
        """The text of the columns whose headers are between two points."""
        self._ask('copyColumns', **{'from': first_x, 'to': last_x, 'y': y, 'file': str(file)})
        return file.read_text(encoding='utf-8', errors='replace')

    def engine_megabytes(self) -> int:
        """The most memory that the largest engine of this service has used."""
        return max((_peak_kilobytes(process) for process in self._engines()), default=0) // 1024

    def close(self) -> None:
        """Ends the program; the keeper of its private bus then ends all others."""
        if self._process is None:
            return
        assert self._process.stdin is not None
        self._process.stdin.close()
        try:
            self._process.wait(GRACE_SECONDS)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()
        self._process = None

    def _start(self) -> None:
        if self._process is not None and self._process.poll() is None:
            return
        environment = {**os.environ, 'DBUS_SESSION_BUS_ADDRESS': '', 'XDG_RUNTIME_DIR': ''}
        self._process = subprocess.Popen([self._program], stdin=subprocess.PIPE, stdout=subprocess.PIPE, bufsize=0,
                                         stderr=subprocess.DEVNULL, env=environment, start_new_session=True)

    def _ask(self, work: str, **members: object) -> tuple[dict, bytes]:
        assert self._process is not None and self._process.stdin is not None
        request = {'do': work, 'limit': int(self._seconds * 1000), **members}
        last_moment = time.monotonic() + self._seconds + GRACE_SECONDS
        try:
            self._process.stdin.write(json.dumps(request).encode() + b'\n')
            line = self._read_line(last_moment)
        except (BrokenPipeError, TimeoutError) as failure:
            self.kill()
            raise ViewerFailed(f'{work}: no answer', lost=True) from failure
        reply = json.loads(line)
        if 'error' in reply:
            gone = reply['kind'] in ('gone', 'timeout')
            if gone:
                self.kill()
            raise ViewerFailed(reply['error'], gone or (reply['kind'] == 'document' and reply['code'] in LOST_CODES))
        return reply, self._read(reply.get('bytes', 0), last_moment)

    def kill(self) -> None:
        """For a program that does not answer; the next open starts another one."""
        if self._process is not None:
            self._process.kill()
            self._process.wait()
            self._process = None

    def _read_line(self, last_moment: float) -> bytes:
        line = b''
        while not line.endswith(b'\n'):
            line += self._read(1, last_moment)
        return line

    def _read(self, size: int, last_moment: float) -> bytes:
        assert self._process is not None and self._process.stdout is not None
        output = self._process.stdout
        data = bytearray()
        while len(data) < size:
            ready = select.select([output], [], [], max(0.0, last_moment - time.monotonic()))[0]
            piece = output.read(size - len(data)) if ready else None
            if piece is None:
                raise TimeoutError
            if not piece:
                raise BrokenPipeError
            data += piece
        return bytes(data)

    def _engines(self) -> list[pathlib.Path]:
        if self._process is None:
            return []
        parents: dict[int, int] = {}
        engines = []
        for process in pathlib.Path('/proc').glob('[0-9]*'):
            try:
                name, _, rest = (process / 'stat').read_text().rpartition(')')
            except OSError:
                continue  # it has ended
            parents[int(process.name)] = int(rest.split()[1])
            if name.partition('(')[2] == ENGINE:
                engines.append(process)
        return [engine for engine in engines if _descends(int(engine.name), self._process.pid, parents)]


def _descends(process: int, ancestor: int, parents: dict[int, int]) -> bool:
    while process and process != ancestor:
        process = parents.get(process, 0)
    return process == ancestor


def _peak_kilobytes(process: pathlib.Path) -> int:
    try:
        lines = (process / 'status').read_text().splitlines()
    except OSError:
        return 0
    return next((int(line.split()[1]) for line in lines if line.startswith('VmHWM:')), 0)
