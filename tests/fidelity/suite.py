# SPDX-License-Identifier: Apache-2.0
"""The office suite in a process of its own, as `soffice --headless` runs it."""
import contextlib
import csv
import dataclasses
import itertools
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import threading
import time
from collections.abc import Iterator
from typing import Any

import uno
from com.sun.star.beans import PropertyValue
from com.sun.star.uno import Exception as UnoException

from fidelity.pictures import Box

END_SECONDS = 10
START_SECONDS = 60
EDGE = 4  # pixels
MOST_COMMENTS = 500  # that are asked for; the first ones are on the first screen
HUNDREDTHS_OF_MM_PER_INCH = 2540
SERVICES = {'word': 'com.sun.star.text.TextDocument', 'sheet': 'com.sun.star.sheet.SpreadsheetDocument',
            'slide': 'com.sun.star.presentation.PresentationDocument'}
MODERN_FILTERS = {'word': ('docx', 'MS Word 2007 XML'), 'sheet': ('xlsx', 'Calc MS Excel 2007 XML'),
                  'slide': ('pptx', 'Impress MS PowerPoint 2007 XML')}
# Commas, quotes, UTF-8, from row 1 on, all columns as text, quoted, as shown; then comes the sheet, from 1.
CSV_OPTIONS = '44,34,76,1,,0,true,true,true,false,false'
csv.field_size_limit(1 << 24)


class SuiteFailed(Exception):
    """The suite did not open or write a document, or ended on it."""


@dataclasses.dataclass
class FirstCells:
    rows: list[list[str]] = dataclasses.field(default_factory=list)  # their texts
    visible: list[bool] = dataclasses.field(default_factory=list)    # for each row
    widths: list[float] = dataclasses.field(default_factory=list)    # of the columns in pixels

    def touch_points(self, pixels: float) -> list[float]:
        """For each column a point in it: away from its edges, which may be rounded in another way elsewhere. The last
        column is wide enough for that, and clearly within so many pixels."""
        begins = itertools.accumulate(self.widths, initial=0.0)
        points = [begin + min(width / 2, EDGE) for begin, width in zip(begins, self.widths)]
        usable = [i for i, width in enumerate(self.widths) if width > 3 * EDGE and points[i] < pixels - EDGE]
        return points[:usable[-1] + 1] if usable else []

    def texts(self, columns: int, with_hidden: bool) -> list[str]:
        """The texts of the first columns, row by row."""
        return [text for row, visible in zip(self.rows, self.visible) if visible or with_hidden
                for text in row[:columns]]


class Suite:
    """One process with its own profile; it starts at the first use, and again after its end."""

    def __init__(self) -> None:
        self._folder = pathlib.Path(tempfile.mkdtemp(prefix='fidelity-suite-'))
        self._process: subprocess.Popen[bytes] | None = None
        self._desktop: Any = None

    def close(self) -> None:
        self._end()
        shutil.rmtree(self._folder, ignore_errors=True)

    @contextlib.contextmanager
    def document(self, path: pathlib.Path, kind: str, seconds: float) -> Iterator['SuiteDocument']:
        """Opens a document, and stops the suite when the work on it takes longer than allowed."""
        self._start()
        watchdog = threading.Timer(seconds, self._kill)
        watchdog.start()
        try:
            component = self._load(path)
            try:
                yield SuiteDocument(component, kind)
            finally:
                with contextlib.suppress(UnoException):
                    component.close(True)
        except UnoException as failure:
            lost = not watchdog.is_alive() or self._process is None or self._process.poll() is not None
            raise SuiteFailed('the suite ended on it' if lost else f'the suite: {failure.Message}') from failure
        finally:
            watchdog.cancel()

    def _load(self, path: pathlib.Path) -> Any:
        component = self._desktop.loadComponentFromURL(path.resolve().as_uri(), '_blank', 0,
                                                       (_property('Hidden', True), _property('ReadOnly', True)))
        if component is None:
            raise SuiteFailed('the suite does not open it')
        return component

    def _start(self) -> None:
        if self._process is not None and self._process.poll() is None:
            return
        self._kill()
        pipe = f'fidelity-{os.getpid()}-{time.monotonic_ns()}'
        environment = {**os.environ, 'TMPDIR': str(self._folder), 'LC_ALL': 'C.UTF-8'}
        self._process = subprocess.Popen(
            ['soffice', '--headless', '--norestore', '--nologo', '--nodefault', f'--accept=pipe,name={pipe};urp;',
             f'-env:UserInstallation={(self._folder / "profile").as_uri()}'],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, env=environment,
            start_new_session=True)
        self._desktop = self._connect(pipe)

    def _connect(self, pipe: str) -> Any:
        local = uno.getComponentContext()
        resolver = local.ServiceManager.createInstanceWithContext('com.sun.star.bridge.UnoUrlResolver', local)
        last_moment = time.monotonic() + START_SECONDS
        while True:
            try:
                context = resolver.resolve(f'uno:pipe,name={pipe};urp;StarOffice.ComponentContext')
                return context.ServiceManager.createInstanceWithContext('com.sun.star.frame.Desktop', context)
            except UnoException as failure:
                if time.monotonic() > last_moment:
                    self._kill()
                    raise SuiteFailed('the suite does not start') from failure
                time.sleep(0.1)  # the suite does not tell when its pipe is there

    def _end(self) -> None:
        """Asks the process to end, because a killed one leaves its pipes in /tmp."""
        if self._process is not None and self._process.poll() is None:
            watchdog = threading.Timer(END_SECONDS, self._kill)
            watchdog.start()
            with contextlib.suppress(UnoException):
                self._desktop.terminate()
            self._process.wait()
            watchdog.cancel()

    def _kill(self) -> None:
        if self._process is not None and self._process.poll() is None:
            os.killpg(self._process.pid, signal.SIGKILL)  # a session of its own: soffice and its children
            self._process.wait()


class SuiteDocument:
    """A document that the suite has open."""

    def __init__(self, component: Any, kind: str) -> None:
        if not component.supportsService(SERVICES[kind]):
            raise SuiteFailed('the suite opens it as another kind of document')
        self._component = component
        self._kind = kind

    def remove_hidden_shapes(self) -> None:
        """The export would print shapes that are not to be seen."""
        for number in range(self._component.DrawPages.Count):
            page = self._component.DrawPages.getByIndex(number)
            for shape in [page.getByIndex(i) for i in range(page.Count)]:
                if not getattr(shape, 'Visible', True):
                    page.remove(shape)

    def write_pdf(self, path: pathlib.Path) -> None:
        data = (_property('ExportHiddenSlides', True),)
        filters = {'word': 'writer_pdf_Export', 'sheet': 'calc_pdf_Export', 'slide': 'impress_pdf_Export'}
        options = uno.Any('[]com.sun.star.beans.PropertyValue', data)
        self._component.storeToURL(path.as_uri(), (_property('FilterName', filters[self._kind]),
                                                   _property('FilterData', options)))

    def write_modern(self, folder: pathlib.Path) -> pathlib.Path:
        """Writes the document in the format of its kind that is made of XML."""
        extension, name = MODERN_FILTERS[self._kind]
        path = folder / f'converted.{extension}'
        self._component.storeToURL(path.as_uri(), (_property('FilterName', name),))
        return path

    def first_cells(self, number: int, pixels: int, rows: int, pixels_per_inch: int) -> FirstCells:
        """The first rows of the columns that begin within so many pixels, without the hidden columns."""
        sheet = self._component.Sheets.getByIndex(number)
        cells = FirstCells(visible=[sheet.Rows.getByIndex(row).IsVisible for row in range(rows)])
        across = []
        for column in range(sheet.Columns.Count):
            if sum(cells.widths) >= pixels:
                break
            properties = sheet.Columns.getByIndex(column)
            if properties.IsVisible:
                cells.widths.append(properties.Width * pixels_per_inch / HUNDREDTHS_OF_MM_PER_INCH)
                across.append(column)
        cells.rows = [[sheet.getCellByPosition(column, row).String for column in across] for row in range(rows)]
        return cells

    def shown_cells(self, number: int, folder: pathlib.Path) -> list[str]:
        """The texts of all cells of a sheet that are not empty, as they are shown."""
        self._component.storeToURL((folder / 'cells.csv').as_uri(), (
            _property('FilterName', 'Text - txt - csv (StarCalc)'), _property('FilterOptions', f'{CSV_OPTIONS},{number + 1}')))
        # The suite adds the sheet's name, which may not be a name of a file.
        return [cell for path in folder.glob('cells*.csv') for cell in _cells_of_csv(path)]

    def first_visible_sheet(self) -> int:
        sheets = self._component.Sheets
        return next((i for i in range(sheets.Count) if sheets.getByIndex(i).IsVisible), 0)

    def drawings(self, number: int, pixels_per_inch: int) -> list[Box]:
        """The places of a sheet's drawings in pixels, and of its comments and their cells."""
        sheet = self._component.Sheets.getByIndex(number)
        drawn = [sheet.DrawPage.getByIndex(i) for i in range(sheet.DrawPage.Count)]
        for note in [sheet.Annotations.getByIndex(i) for i in range(min(sheet.Annotations.Count, MOST_COMMENTS))]:
            drawn += [note.AnnotationShape, sheet.getCellByPosition(note.Position.Column, note.Position.Row)]
        return [_box_of(shape, pixels_per_inch) for shape in drawn]


def _box_of(shape: Any, pixels_per_inch: int) -> Box:
    left, top, across, down = (round(length * pixels_per_inch / HUNDREDTHS_OF_MM_PER_INCH) for length in (
        shape.Position.X, shape.Position.Y, shape.Size.Width, shape.Size.Height))
    return Box(left, top, left + across, top + down)


def _cells_of_csv(path: pathlib.Path) -> list[str]:
    with path.open(encoding='utf-8', errors='replace', newline='') as file:
        return [cell for row in csv.reader(line.replace('\0', '') for line in file) for cell in row if cell]


def _property(name: str, value: object) -> PropertyValue:
    made = PropertyValue()
    made.Name = name
    made.Value = value
    return made
