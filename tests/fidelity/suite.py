# SPDX-License-Identifier: Apache-2.0
"""The office suite in a process of its own, as `soffice --headless` runs it."""
import contextlib
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import threading
import time
from typing import Any, Iterator

import uno
from com.sun.star.beans import PropertyValue
from com.sun.star.uno import Exception as UnoException

START_SECONDS = 60
SERVICES = {'word': 'com.sun.star.text.TextDocument', 'sheet': 'com.sun.star.sheet.SpreadsheetDocument',
            'slide': 'com.sun.star.presentation.PresentationDocument'}
MODERN_FILTERS = {'word': ('docx', 'MS Word 2007 XML'), 'sheet': ('xlsx', 'Calc MS Excel 2007 XML'),
                  'slide': ('pptx', 'Impress MS PowerPoint 2007 XML')}


class SuiteFailed(Exception):
    """The suite did not open or write a document, or ended on it."""


class Suite:
    """One process with its own profile; it starts at the first use, and again after its end."""

    def __init__(self) -> None:
        self._folder = pathlib.Path(tempfile.mkdtemp(prefix='fidelity-suite-'))
        self._process: subprocess.Popen[bytes] | None = None
        self._desktop: Any = None

    def close(self) -> None:
        self._kill()
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
        environment = {**os.environ, 'TMPDIR': str(self._folder), 'LC_ALL': 'en_US.UTF-8'}
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

    def cell_rows(self, number: int, columns: int, rows: int) -> list[list[str]]:
        """The texts of the cells of a sheet's first columns and rows, without the hidden ones."""
        sheet = self._component.Sheets.getByIndex(number)
        across = [i for i in range(columns) if sheet.Columns.getByIndex(i).IsVisible]
        down = [i for i in range(rows) if sheet.Rows.getByIndex(i).IsVisible]
        return [[sheet.getCellByPosition(column, row).String for column in across] for row in down]

    def is_hidden(self, number: int) -> bool:
        return not self._component.Sheets.getByIndex(number).IsVisible

    def has_comments(self, number: int) -> bool:
        return self._component.Sheets.getByIndex(number).Annotations.Count > 0


def _property(name: str, value: object) -> PropertyValue:
    made = PropertyValue()
    made.Name = name
    made.Value = value
    return made
