# SPDX-License-Identifier: Apache-2.0
"""make_references.py FOLDER: writes a red picture, a text and a workbook with a secret
word, and documents that refer to them, each in another way. Those whose names start with
"own" contain the picture or the word."""
import pathlib
import sys
import zipfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[3] / 'samples'))
from docx_writer import png  # noqa: E402

SECRET = 'Saltmarsh'
HEAD = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>'
OFFICE = 'http://schemas.openxmlformats.org/officeDocument/2006'
PACKAGE = 'http://schemas.openxmlformats.org/package/2006'
DRAWING = 'http://schemas.openxmlformats.org/drawingml/2006'
SHEET = 'http://schemas.openxmlformats.org/spreadsheetml/2006/main'
MAIN = {'docx': 'wordprocessingml.document', 'xlsx': 'spreadsheetml.sheet', 'pptx': 'presentationml.presentation'}
NAMES = (f'xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main" xmlns:r="{OFFICE}/relationships" '
         f'xmlns:wp="{DRAWING}/wordprocessingDrawing" xmlns:a="{DRAWING}/main" xmlns:pic="{DRAWING}/picture" '
         'xmlns:v="urn:schemas-microsoft-com:vml" xmlns:o="urn:schemas-microsoft-com:office:office" '
         'xmlns:p="http://schemas.openxmlformats.org/presentationml/2006/main" '
         f'xmlns:xdr="{DRAWING}/spreadsheetDrawing"')
EXTENT = '<a:xfrm><a:off x="0" y="0"/><a:ext cx="1905000" cy="1905000"/></a:xfrm>'
SHAPE = f'{EXTENT}<a:prstGeom prst="rect"><a:avLst/></a:prstGeom>'


def relations(entries):
    """(id, kind, target, external) of each relation."""
    lines = ''.join(f'<Relationship Id="{ident}" Type="{OFFICE}/relationships/{kind}" Target="{target}"'
                    f'{" TargetMode=" + chr(34) + "External" + chr(34) if external else ""}/>'
                    for ident, kind, target, external in entries)
    return f'{HEAD}<Relationships xmlns="{PACKAGE}/relationships">{lines}</Relationships>'


def package(path, main, parts):
    """Writes a package; `parts` maps names to (content type, data)."""
    kind = MAIN[path.suffix[1:]]
    types = ''.join(f'<Override PartName="/{name}" ContentType="{content}"/>'
                    for name, (content, _) in parts.items() if content)
    with zipfile.ZipFile(path, 'w') as archive:
        archive.writestr('[Content_Types].xml',
                         f'{HEAD}<Types xmlns="{PACKAGE}/content-types"><Default Extension="rels" '
                         f'ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
                         '<Default Extension="png" ContentType="image/png"/>'
                         '<Default Extension="svg" ContentType="image/svg+xml"/>'
                         '<Default Extension="xml" ContentType="application/xml"/>'
                         f'<Override PartName="/{main}" ContentType="application/vnd.openxmlformats-officedocument.'
                         f'{kind}.main+xml"/>{types}</Types>')
        archive.writestr('_rels/.rels', relations([('r1', 'officeDocument', main, False)]))
        for name, (_, data) in parts.items():
            archive.writestr(name, data)


def picture(blip):
    """A picture in a text; `blip` is r:embed or r:link with the relation."""
    return (f'<w:r><w:drawing><wp:inline><wp:extent cx="1905000" cy="1905000"/><wp:docPr id="1" name="p"/>'
            f'<a:graphic><a:graphicData uri="{DRAWING}/picture"><pic:pic><pic:nvPicPr><pic:cNvPr id="1" name="p"/>'
            f'<pic:cNvPicPr/></pic:nvPicPr><pic:blipFill><a:blip {blip}/><a:stretch><a:fillRect/></a:stretch>'
            f'</pic:blipFill><pic:spPr>{SHAPE}</pic:spPr></pic:pic></a:graphicData></a:graphic></wp:inline>'
            '</w:drawing></w:r>')


def field(instruction):
    return ('<w:r><w:fldChar w:fldCharType="begin" w:dirty="true"/></w:r><w:r><w:instrText xml:space="preserve"> '
            f'{instruction} </w:instrText></w:r><w:r><w:fldChar w:fldCharType="separate"/></w:r>'
            '<w:r><w:t>none</w:t></w:r><w:r><w:fldChar w:fldCharType="end"/></w:r>')


def text(path, run, related=(), parts=None):
    document = f'{HEAD}<w:document {NAMES}><w:body><w:p>{run}</w:p></w:body></w:document>'
    package(path, 'word/document.xml', {'word/document.xml': ('', document),
                                        'word/_rels/document.xml.rels': ('', relations(related)), **(parts or {})})


def workbook(path, cell, related=(), parts=None, more=''):
    book = (f'{HEAD}<workbook xmlns="{SHEET}" xmlns:r="{OFFICE}/relationships"><sheets><sheet name="One" sheetId="1" '
            f'r:id="r1"/></sheets>{more}</workbook>')
    sheet_content = 'application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml'
    sheet = (f'{HEAD}<worksheet xmlns="{SHEET}" xmlns:r="{OFFICE}/relationships"><sheetData><row r="1">{cell}</row>'
             f'</sheetData>{(parts or {}).pop("after", "")}</worksheet>')
    package(path, 'xl/workbook.xml', {
        'xl/workbook.xml': ('', book), 'xl/worksheets/sheet1.xml': (sheet_content, sheet),
        'xl/_rels/workbook.xml.rels': ('', relations([('r1', 'worksheet', 'worksheets/sheet1.xml', False), *related])),
        **(parts or {})})


def word_cell(word):
    return f'<c r="A1" t="inlineStr"><is><t>{word}</t></is></c>'


def linked_picture_in_sheet(path, url):
    anchor = (f'<xdr:pic><xdr:nvPicPr><xdr:cNvPr id="2" name="p"/><xdr:cNvPicPr/></xdr:nvPicPr><xdr:blipFill>'
              f'<a:blip r:link="r1"/><a:stretch><a:fillRect/></a:stretch></xdr:blipFill><xdr:spPr>{SHAPE}</xdr:spPr>'
              '</xdr:pic><xdr:clientData/>')
    drawing = (f'{HEAD}<xdr:wsDr {NAMES}><xdr:oneCellAnchor><xdr:from><xdr:col>0</xdr:col><xdr:colOff>0</xdr:colOff>'
               '<xdr:row>1</xdr:row><xdr:rowOff>0</xdr:rowOff></xdr:from><xdr:ext cx="1905000" cy="1905000"/>'
               f'{anchor}</xdr:oneCellAnchor></xdr:wsDr>')
    workbook(path, word_cell('none'), parts={
        'after': '<drawing r:id="r1"/>',
        'xl/worksheets/_rels/sheet1.xml.rels': ('', relations([('r1', 'drawing', '../drawings/drawing1.xml', False)])),
        'xl/drawings/drawing1.xml': ('application/vnd.openxmlformats-officedocument.drawing+xml', drawing),
        'xl/drawings/_rels/drawing1.xml.rels': ('', relations([('r1', 'image', url, True)]))})


def external_cell(path, url):
    link = (f'{HEAD}<externalLink xmlns="{SHEET}"><externalBook xmlns:r="{OFFICE}/relationships" r:id="r1"><sheetNames>'
            '<sheetName val="One"/></sheetNames></externalBook></externalLink>')
    workbook(path, '<c r="A1"><f>[1]One!A1</f></c>', [('r2', 'externalLink', 'externalLinks/externalLink1.xml', False)], {
        'xl/externalLinks/externalLink1.xml':
            ('application/vnd.openxmlformats-officedocument.spreadsheetml.externalLink+xml', link),
        'xl/externalLinks/_rels/externalLink1.xml.rels': ('', relations([('r1', 'externalLinkPath', url, True)]))},
        more='<externalReferences><externalReference r:id="r2"/></externalReferences>')


def web_query(path, url):
    connections = (f'{HEAD}<connections xmlns="{SHEET}"><connection id="1" name="q" type="4" refreshedVersion="3" '
                   f'refreshOnLoad="1"><webPr sourceData="1" parsePre="1" url="{url}"/></connection></connections>')
    table = (f'{HEAD}<queryTable xmlns="{SHEET}" name="q" connectionId="1" refreshOnLoad="1"/>')
    workbook(path, word_cell('none'), [('r2', 'connections', 'connections.xml', False)], {
        'xl/connections.xml': ('application/vnd.openxmlformats-officedocument.spreadsheetml.connections+xml', connections),
        'xl/queryTables/queryTable1.xml':
            ('application/vnd.openxmlformats-officedocument.spreadsheetml.queryTable+xml', table),
        'xl/worksheets/_rels/sheet1.xml.rels':
            ('', relations([('r1', 'queryTable', '../queryTables/queryTable1.xml', False)]))})


def slide(path, url):
    shape = (f'<p:pic><p:nvPicPr><p:cNvPr id="2" name="p"/><p:cNvPicPr/><p:nvPr/></p:nvPicPr><p:blipFill><a:blip '
             f'r:link="r1"/><a:stretch><a:fillRect/></a:stretch></p:blipFill><p:spPr>{SHAPE}</p:spPr></p:pic>')
    tree = ('<p:cSld><p:spTree><p:nvGrpSpPr><p:cNvPr id="1" name=""/><p:cNvGrpSpPr/><p:nvPr/></p:nvGrpSpPr><p:grpSpPr/>'
            f'{shape}</p:spTree></p:cSld>')
    show = (f'{HEAD}<p:presentation {NAMES}><p:sldIdLst><p:sldId id="256" r:id="r1"/></p:sldIdLst>'
            '<p:sldSz cx="9144000" cy="6858000"/></p:presentation>')
    package(path, 'ppt/presentation.xml', {
        'ppt/presentation.xml': ('', show),
        'ppt/_rels/presentation.xml.rels': ('', relations([('r1', 'slide', 'slides/slide1.xml', False)])),
        'ppt/slides/slide1.xml': ('application/vnd.openxmlformats-officedocument.presentationml.slide+xml',
                                  f'{HEAD}<p:sld {NAMES}>{tree}</p:sld>'),
        'ppt/slides/_rels/slide1.xml.rels': ('', relations([('r1', 'image', url, True)]))})


def texts(folder, red, words):
    """Texts; `red` and `words` are URLs."""
    path = words[len('file://'):]
    image = red[len('file://'):]
    link = [('r1', 'image', red, True)]
    svg = (f'<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" width="200" '
           f'height="200"><image width="200" height="200" xlink:href="{red}"/></svg>')
    shape = '<w:pict><v:shape style="width:150pt;height:150pt"><v:imagedata r:id="r1"/></v:shape></w:pict>'
    embedded = ('<w:object><v:shape id="s" style="width:150pt;height:150pt"><v:imagedata r:id="r1"/></v:shape>'
                '<o:OLEObject Type="Link" ProgID="Word.Document.12" ShapeID="s" DrawAspect="Content" r:id="r2" '
                'UpdateMode="Always"/></w:object>')
    text(folder / 'own-picture.docx', picture('r:embed="r1"'), [('r1', 'image', 'media/i.png', False)],
         {'word/media/i.png': ('', (folder / 'red.png').read_bytes())})
    text(folder / 'own-word.docx', f'<w:r><w:t>{SECRET}</w:t></w:r>')
    text(folder / 'svg.docx', picture('r:embed="r1"'), [('r1', 'image', 'media/i.svg', False)],
         {'word/media/i.svg': ('', svg)})
    text(folder / 'linked-picture.docx', picture('r:link="r1"'), link)
    text(folder / 'shape-picture.docx', f'<w:r>{shape}</w:r>', link)
    text(folder / 'linked-object.docx', f'<w:r>{embedded}</w:r>', [*link, ('r2', 'oleObject', words, True)])
    text(folder / 'picture-field.docx', field(f'INCLUDEPICTURE "{image}" \\d'))
    text(folder / 'text-field.docx', field(f'INCLUDETEXT "{path}"'))
    (folder / 'page.doc').write_text(f'<html><body><img src="{red}" width="200" height="200"><iframe src="{words}">'
                                     f'</iframe><object data="{words}"></object></body></html>')
    (folder / 'rich-picture.doc').write_text(
        '{\\rtf1{\\field{\\*\\fldinst INCLUDEPICTURE "%s" \\\\d}{\\fldrslt none}}}' % image)
    (folder / 'rich-text.doc').write_text(
        '{\\rtf1{\\field\\flddirty{\\*\\fldinst INCLUDETEXT "%s"}{\\fldrslt none}}}' % path)


def main():
    folder = pathlib.Path(sys.argv[1]).resolve()
    (folder / 'red.png').write_bytes(png(200, 200, lambda x, y: (255, 0, 0)))
    (folder / 'words.txt').write_text(SECRET + '\n')
    workbook(folder / 'own-word.xlsx', word_cell(SECRET))
    red, words, book = ((folder / name).as_uri() for name in ('red.png', 'words.txt', 'own-word.xlsx'))
    texts(folder, red, words)
    linked_picture_in_sheet(folder / 'linked-picture.xlsx', red)
    external_cell(folder / 'external-cell.xlsx', book)
    web_query(folder / 'web-query.xlsx', words)
    workbook(folder / 'web-service.xlsx', f'<c r="A1"><f>_xlfn.WEBSERVICE("{words}")</f></c>')
    workbook(folder / 'exchange.xlsx', f'<c r="A1"><f>DDE("soffice","{book}","One.A1")</f></c>')
    slide(folder / 'linked-picture.pptx', red)


main()
