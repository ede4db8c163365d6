# SPDX-License-Identifier: Apache-2.0
"""Runs scripts/fidelity over the sample documents, with the real service and suite. FIDELITY_PROGRAMS names the
folder of the built programs."""
import os
import pathlib
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
SECONDS = 240


class Slice(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self._pictures = pathlib.Path(folder.name) / 'pictures'

    def run_over(self, *arguments: str) -> tuple[int, str]:
        done = subprocess.run(
            [ROOT / 'scripts' / 'fidelity', '--programs', os.environ['FIDELITY_PROGRAMS'], '--pictures', self._pictures,
             *arguments], cwd=ROOT / 'samples', text=True, capture_output=True, timeout=SECONDS, check=False)
        return done.returncode, done.stdout + done.stderr

    def test_the_samples_are_shown_right(self) -> None:
        status, told = self.run_over('tour.docx', 'tour.doc', 'tour.txt', 'tour.xlsx', 'tour.xls', 'locked.docx')
        self.assertEqual(0, status, told)
        self.assertRegex(told, r'  opened +3 +2 +5\n')
        self.assertRegex(told, r'  refused +1 +0 +1\n')
        self.assertFalse(self._pictures.exists())

    def test_a_slide_that_differs_from_the_export_is_listed_with_its_picture(self) -> None:
        # The last slide has a shape that an animation takes away; Lectern hides it, the export shows it.
        status, told = self.run_over('tour.pptx')
        self.assertEqual(1, status, told)
        self.assertRegex(told, r'tour\.pptx  slides: slide 7 differs by 0\.\d+ \[samples-tour\.pptx-slide-7\.png\]\n')
        self.assertEqual(['samples-tour.pptx-slide-7.png'], [path.name for path in self._pictures.iterdir()])

    def test_a_folder_without_documents_is_a_misuse(self) -> None:
        self.assertEqual(2, self.run_over('tour.play')[0])


if __name__ == '__main__':
    unittest.main()
