# SPDX-License-Identifier: Apache-2.0
"""The viewer with documents of every kind: their first picture is the service's, and they move."""
import unittest

from window.case import main
from window.painted import painted, write_document
from window.screen import difference
from window.session import SOURCE, Session

SIZE = (768, 800)
SAMPLES = ['docx', 'doc', 'xlsx', 'xls', 'pptx', 'ppt']
MADE = ['odt', 'ods', 'odp', 'rtf', 'csv', 'html']


class ViewerKindsTest(unittest.TestCase):
    """Each kind in a window of its own."""

    def test_a_document_of_each_kind_is_shown_and_moves(self):
        with Session() as session:
            for extension in SAMPLES + MADE:
                with self.subTest(extension):
                    self.show(session, extension)

    def show(self, session, extension):
        """Opens a document, compares it, and moves it down, or to the next slide."""
        path = (session.copy_of(SOURCE / f'samples/tour.{extension}') if extension in SAMPLES
                else write_document(session.folder, extension))
        program = session.start('lectern-view', path)
        try:
            session.wait(lambda: session.manager.windows, 'a window')
            session.manager.resize(*SIZE)
            view = session.wait(lambda: [element for element in session.tree.everything(showing=True)
                                         if element.role.startswith('document ')], 'a view')[0]
            session.wait(lambda: session.find('frame').box[2:] == SIZE, 'a window of this size')

            def same():
                left, top, right, bottom = view.box
                picture = painted(session, path, (right - left, bottom - top))
                return difference(session.screen.picture(view.box), picture) < 0.01
            session.wait(same, f'the first picture of {path.name}')
            first = session.screen.picture(view.box)
            session.screen.click(*view.centre)
            session.screen.key('Page_Down')
            session.wait(lambda: difference(session.screen.picture(view.box), first) > 0.0005, 'another part of it')
        finally:
            session.end(program)
            session.wait(lambda: not session.manager.windows, 'no window')


if __name__ == '__main__':
    main()
