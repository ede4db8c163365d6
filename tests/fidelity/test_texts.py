# SPDX-License-Identifier: Apache-2.0
"""The independent readers of files."""
import pathlib
import unittest
import xml.etree.ElementTree as ET

from fidelity import sheet_text, slide_text, word_text
from fidelity.sampling import occurrences, sample, texts_with

SAMPLES = pathlib.Path(__file__).resolve().parent.parent.parent / 'samples'
W = 'xmlns:w="w" xmlns:mc="mc" xmlns:v="v"'


def word_texts(body: str) -> list[str]:
    return [paragraph.text for paragraph in word_text.paragraphs_of(ET.fromstring(f'<w:body {W}>{body}</w:body>'))]


class WordText(unittest.TestCase):
    def test_insertions_are_read_and_deletions_are_not(self) -> None:
        self.assertEqual(['new text'], word_texts(
            '<w:p><w:ins><w:r><w:t>new</w:t></w:r></w:ins><w:del><w:r><w:delText>old</w:delText></w:r></w:del>'
            '<w:moveFrom><w:r><w:t>moved</w:t></w:r></w:moveFrom><w:r><w:t> text</w:t></w:r></w:p>'))

    def test_hidden_runs_are_not_read(self) -> None:
        self.assertEqual(['seen'], word_texts(
            '<w:p><w:r><w:rPr><w:vanish/></w:rPr><w:t>hidden</w:t></w:r>'
            '<w:r><w:rPr><w:vanish w:val="0"/></w:rPr><w:t>seen</w:t></w:r></w:p>'))

    def test_runs_in_hidden_styles_are_not_read(self) -> None:
        styles = ET.fromstring(
            f'<w:styles {W}><w:style w:styleId="Secret"><w:rPr><w:vanish/></w:rPr></w:style>'
            '<w:style w:styleId="Heir"><w:basedOn w:val="Secret"/></w:style>'
            '<w:style w:styleId="Open"><w:basedOn w:val="Secret"/><w:rPr><w:vanish w:val="0"/></w:rPr></w:style>'
            '<w:style w:styleId="Round"><w:basedOn w:val="Round"/></w:style></w:styles>')
        hidden = word_text.hidden_styles(styles)
        self.assertEqual({'Secret', 'Heir'}, hidden)
        body = ET.fromstring(
            f'<w:body {W}><w:p><w:pPr><w:pStyle w:val="Heir"/></w:pPr><w:r><w:t>hidden</w:t></w:r>'
            '<w:r><w:rPr><w:vanish w:val="0"/></w:rPr><w:t>seen</w:t></w:r></w:p>'
            '<w:p><w:r><w:rPr><w:rStyle w:val="Secret"/></w:rPr><w:t>hidden</w:t></w:r><w:r><w:t>too</w:t></w:r></w:p>'
            '</w:body>')
        self.assertEqual(['seen', 'too'], [p.text for p in word_text.paragraphs_of(body, hidden)])

    def test_fields_have_their_results_only(self) -> None:
        self.assertEqual(['page 7.'], word_texts(
            '<w:p><w:r><w:t>page </w:t><w:fldChar w:fldCharType="begin"/><w:t>PAGE</w:t>'
            '<w:fldChar w:fldCharType="separate"/><w:t>7</w:t><w:fldChar w:fldCharType="end"/><w:t>.</w:t></w:r></w:p>'))

    def test_a_box_with_two_descriptions_is_read_once_and_apart_from_its_paragraph(self) -> None:
        box = '<w:txbxContent><w:p><w:r><w:t>box</w:t></w:r></w:p></w:txbxContent>'
        self.assertEqual(['before after', 'box'], word_texts(
            f'<w:p><w:r><w:t>before</w:t><mc:AlternateContent><mc:Choice>{box}</mc:Choice>'
            f'<mc:Fallback>{box}</mc:Fallback></mc:AlternateContent><w:t> after</w:t></w:r></w:p>'))

    def test_content_controls_around_blocks_and_rows_are_entered(self) -> None:
        paragraph = '<w:p><w:r><w:t>cover</w:t></w:r></w:p>'
        table = f'<w:tbl><w:tr><w:sdt><w:sdtContent><w:tc>{paragraph}</w:tc></w:sdtContent></w:sdt></w:tr></w:tbl>'
        self.assertEqual(['cover', 'cover'], word_texts(f'<w:sdt><w:sdtContent>{paragraph}{table}</w:sdtContent></w:sdt>'))

    def test_ruby_has_its_base_and_word_art_its_text(self) -> None:
        self.assertEqual(['base', 'Art'], word_texts(
            '<w:p><w:r><w:ruby><w:rt><w:r><w:t>reading</w:t></w:r></w:rt>'
            '<w:rubyBase><w:r><w:t>base</w:t></w:r></w:rubyBase></w:ruby></w:r>'
            '<w:r><v:textpath string="Art"/></w:r></w:p>'))

    def test_the_sample_is_read(self) -> None:
        self.assertIn('A Tour of the Harbour', [p.text for p in word_text.read_word(SAMPLES / 'tour.docx')])


class SheetText(unittest.TestCase):
    SHEET = ET.fromstring(
        '<worksheet><cols><col min="2" max="2" hidden="1"/></cols><sheetData>'
        '<row r="3"><c r="A3" t="s"><v>0</v></c><c r="B3" t="inlineStr"><is><t>in place</t></is></c><c><v>5</v></c></row>'
        '<row r="4" hidden="1"><c r="A4" t="str"><v>result</v></c></row></sheetData></worksheet>')

    def test_shared_inline_and_computed_texts_are_read_and_numbers_are_not(self) -> None:
        cells = sheet_text.cells_of(self.SHEET, ['shared'])
        self.assertEqual([(0, 2, 'shared'), (1, 2, 'in place'), (0, 3, 'result')],
                         [(cell.column, cell.row, cell.text) for cell in cells])

    def test_cells_of_hidden_columns_and_rows_are_known(self) -> None:
        self.assertEqual([False, True, True], [cell.hidden for cell in sheet_text.cells_of(self.SHEET, ['shared'])])

    def test_columns_after_z_have_two_letters(self) -> None:
        self.assertEqual([0, 25, 26, 701], [sheet_text.column_number(name) for name in ('A', 'Z', 'AA', 'ZZ')])

    def test_the_sample_is_read(self) -> None:
        self.assertIn('Passengers by boat and month', [c.text for c in sheet_text.read_first_sheet(SAMPLES / 'tour.xlsx')])


class SlideText(unittest.TestCase):
    def test_paragraphs_join_their_runs_and_hidden_shapes_are_left_out(self) -> None:
        slide = ET.fromstring(
            '<sld><sp><nvSpPr><cNvPr/></nvSpPr><p><r><t>one </t></r><r><t>text</t></r></p></sp>'
            '<sp><nvSpPr><cNvPr hidden="1"/></nvSpPr><p><r><t>unseen</t></r></p></sp></sld>')
        self.assertEqual(['one text'], slide_text.paragraphs_of(slide))

    def test_slides_come_in_the_order_of_the_deck(self) -> None:
        slides = slide_text.read_slides(SAMPLES / 'tour.pptx')
        self.assertEqual(7, len(slides))
        self.assertIn('A slide without a title', slides[6])


class Sampling(unittest.TestCase):
    def test_hits_do_not_overlap_and_case_does_not_count(self) -> None:
        self.assertEqual(3, occurrences('anan', ['Ananan', 'banANA', 'ana', 'xanany']))
        self.assertEqual(2, texts_with('ana', ['anana', 'Ana', 'an']))

    def test_a_sample_is_spread_over_the_texts(self) -> None:
        words = [first + second + 'ab' for first in 'abcdefghij' for second in 'abcdefghij']
        self.assertEqual([words[0], words[25], words[50], words[75]], sample([' '.join(words)], 4))

    def test_numbers_short_words_and_letters_that_fold_into_two_are_no_words(self) -> None:
        self.assertEqual(['word'], sample(['a an the 1234 Straße word WORD'], 5))


if __name__ == '__main__':
    unittest.main()
