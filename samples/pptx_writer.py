# SPDX-License-Identifier: Apache-2.0
"""Writes .pptx files, using the standard library only.

Supports as much of the format as samples and tests need: titles, text with levels,
boxes at any angle, gradients, tables, pictures, videos, sounds, bar charts, footers, notes,
hidden slides, animations that hide a shape, both writing directions, and slides of any
size. The same calls always write the same bytes.
"""
import zipfile
from xml.sax.saxutils import escape

from docx_writer import HEAD, REL

NS = ('xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main" '
      'xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships" '
      'xmlns:p="http://schemas.openxmlformats.org/presentationml/2006/main"')
CHART = 'http://schemas.openxmlformats.org/drawingml/2006/chart'
TABLE = 'http://schemas.openxmlformats.org/drawingml/2006/table'
CONTENT = 'application/vnd.openxmlformats-officedocument.presentationml'
EMU_PER_POINT = 12700
STANDARD = (720, 540)  # points
WIDE = (960, 540)


def emu(points):
    return round(points * EMU_PER_POINT)


def paragraph(words, level=0, size=None, rtl=False, bullet=False):
    marks = (f' lvl="{level}"' if level else '') + (' rtl="1" algn="r"' if rtl else '')
    marks += f' marL="{342900 + 400050 * level}" indent="-342900"' if bullet else ''
    point = '<a:buFont typeface="Liberation Sans"/><a:buChar char="•"/>' if bullet else ''
    run = f' sz="{round(size * 100)}"' if size else ''
    lines = '<a:br/>'.join(f'<a:r><a:rPr lang="en-GB"{run}/><a:t>{escape(line)}</a:t></a:r>'
                           for line in words.split('\n'))
    return f'<a:p><a:pPr{marks}>{point}</a:pPr>{lines}</a:p>'


def solid(colour):
    return f'<a:solidFill><a:srgbClr val="{colour}"/></a:solidFill>'


def gradient(angle, colours):
    """The fill with these colours at equal distances, in a direction in degrees, clockwise from the right."""
    stops = ''.join(f'<a:gs pos="{100000 * i // (len(colours) - 1)}"><a:srgbClr val="{colour}"/></a:gs>'
                    for i, colour in enumerate(colours))
    return f'<a:gradFill><a:gsLst>{stops}</a:gsLst><a:lin ang="{angle * 60000}" scaled="0"/></a:gradFill>'


class Slide:
    def __init__(self, number, hidden=False):
        self.number = number
        self.hidden = hidden
        self.shapes = []
        self.relations = [('slideLayout', '../slideLayouts/slideLayout1.xml')]
        self.charts = []
        self.media = {}  # bytes by the file's name
        self.transition = ''
        self.has_footer = False
        self.note = None
        self.taken_away = []
        self.background = ''  # a fill; without it the master's is shown

    def _next(self):
        return len(self.shapes) + 2

    def _shape(self, body, frame, placeholder='', fill='', angle=0, name='Shape'):
        ident = self._next()
        left, top, width, height = frame
        turn = f' rot="{round(angle * 60000)}"' if angle else ''
        self.shapes.append(
            f'<p:sp><p:nvSpPr><p:cNvPr id="{ident}" name="{name} {ident}"/><p:cNvSpPr/><p:nvPr>{placeholder}</p:nvPr>'
            f'</p:nvSpPr><p:spPr><a:xfrm{turn}><a:off x="{emu(left)}" y="{emu(top)}"/><a:ext cx="{emu(width)}" '
            f'cy="{emu(height)}"/></a:xfrm><a:prstGeom prst="rect"><a:avLst/></a:prstGeom>{fill}</p:spPr>'
            f'<p:txBody><a:bodyPr wrap="square"/><a:lstStyle/>{body}</p:txBody></p:sp>')
        return ident

    def title(self, words, frame=(36, 22, 648, 90), size=40):
        return self._shape(paragraph(words, size=size) if words else '<a:p/>', frame, '<p:ph type="title"/>', name='Title')

    def body(self, lines, frame=(36, 126, 648, 356), size=24):
        """A text of lines, or of pairs of a line and its level."""
        pairs = [(line, 0) if isinstance(line, str) else line for line in lines]
        return self._shape(''.join(paragraph(words, level, size, bullet=True) for words, level in pairs), frame,
                           '<p:ph type="body" idx="1"/>', name='Text')

    def box(self, words, frame, size=18, angle=0, rtl=False, fill=None):
        """A box of words. fill: a colour, or a gradient."""
        if fill and not fill.startswith('<'):
            fill = solid(fill)
        return self._shape(paragraph(words, size=size, rtl=rtl), frame, fill=fill or '', angle=angle, name='Box')

    def goes_away(self, shape):
        """Makes a shape fade out at a click."""
        self.taken_away.append(shape)

    def _frame(self, uri, inner, frame):
        ident = self._next()
        left, top, width, height = frame
        self.shapes.append(
            f'<p:graphicFrame><p:nvGraphicFramePr><p:cNvPr id="{ident}" name="Frame {ident}"/><p:cNvGraphicFramePr/>'
            f'<p:nvPr/></p:nvGraphicFramePr><p:xfrm><a:off x="{emu(left)}" y="{emu(top)}"/><a:ext cx="{emu(width)}" '
            f'cy="{emu(height)}"/></p:xfrm><a:graphic><a:graphicData uri="{uri}">{inner}</a:graphicData></a:graphic>'
            '</p:graphicFrame>')

    def table(self, rows, frame, size=14):
        columns = len(rows[0])
        width, height = frame[2] / columns, frame[3] / len(rows)
        grid = ''.join(f'<a:gridCol w="{emu(width)}"/>' for _ in range(columns))
        lines = ''.join(f'<a:tr h="{emu(height)}">' + ''.join(
            f'<a:tc><a:txBody><a:bodyPr/><a:lstStyle/>{paragraph(cell, size=size)}</a:txBody><a:tcPr><a:solidFill>'
            f'<a:srgbClr val="{"DCE6F2" if row % 2 else "F5F8FC"}"/></a:solidFill></a:tcPr></a:tc>' for cell in cells) +
            '</a:tr>' for row, cells in enumerate(rows))
        self._frame(TABLE, f'<a:tbl><a:tblPr firstRow="1"/><a:tblGrid>{grid}</a:tblGrid>{lines}</a:tbl>', frame)

    def _medium(self, kind, data, suffix):
        """Adds a file; the id of the relation to it."""
        name = f'image{self.number}_{len(self.media) + 1}.{suffix}'
        self.media[name] = data
        self.relations.append((kind, f'../media/{name}'))
        return f'rId{len(self.relations)}'

    def picture(self, data, frame, properties='<p:nvPr/>'):
        """A picture of PNG bytes."""
        ident = self._next()
        left, top, width, height = frame
        self.shapes.append(
            f'<p:pic><p:nvPicPr><p:cNvPr id="{ident}" name="Picture {ident}"/><p:cNvPicPr/>{properties}</p:nvPicPr>'
            f'<p:blipFill><a:blip r:embed="{self._medium("image", data, "png")}"/><a:stretch><a:fillRect/></a:stretch></p:blipFill>'
            f'<p:spPr><a:xfrm><a:off x="{emu(left)}" y="{emu(top)}"/><a:ext cx="{emu(width)}" cy="{emu(height)}"/></a:xfrm>'
            '<a:prstGeom prst="rect"><a:avLst/></a:prstGeom></p:spPr></p:pic>')

    def video(self, data, poster, frame):
        """A video of MP4 bytes, with the PNG bytes that are shown until it is played."""
        self.picture(poster, frame, f'<p:nvPr><a:videoFile r:link="{self._medium("video", data, "mp4")}"/></p:nvPr>')

    def sound(self, data):
        """A sound of WAV bytes, played when the slide appears."""
        self.transition = ('<p:transition><p:fade/><p:sndAc><p:stSnd>'
                           f'<p:snd r:embed="{self._medium("audio", data, "wav")}" name="sound"/></p:stSnd></p:sndAc></p:transition>')

    def footer(self, words):
        """A footer, shown where the master has its footers."""
        self.has_footer = True
        self.shapes.append(footer(self._next(), paragraph(words)))

    def bar_chart(self, title, values, frame):
        """A bar chart. values: pairs of a category and its number."""
        names = ''.join(f'<c:pt idx="{i}"><c:v>{escape(name)}</c:v></c:pt>' for i, (name, _) in enumerate(values))
        numbers = ''.join(f'<c:pt idx="{i}"><c:v>{number}</c:v></c:pt>' for i, (_, number) in enumerate(values))
        self.charts.append(
            f'{HEAD}<c:chartSpace xmlns:c="{CHART}" {NS}><c:chart><c:title><c:tx><c:rich><a:bodyPr/><a:p><a:r><a:rPr lang="en-GB" '
            f'sz="1600"/><a:t>{escape(title)}</a:t></a:r></a:p></c:rich></c:tx></c:title><c:plotArea><c:layout/><c:barChart>'
            '<c:barDir val="col"/><c:grouping val="clustered"/><c:ser><c:idx val="0"/><c:order val="0"/><c:cat><c:strLit>'
            f'<c:ptCount val="{len(values)}"/>{names}</c:strLit></c:cat><c:val><c:numLit><c:ptCount val="{len(values)}"/>'
            f'{numbers}</c:numLit></c:val></c:ser><c:axId val="1"/><c:axId val="2"/></c:barChart><c:catAx><c:axId val="1"/>'
            '<c:scaling/><c:axPos val="b"/><c:crossAx val="2"/></c:catAx><c:valAx><c:axId val="2"/><c:scaling/>'
            '<c:axPos val="l"/><c:crossAx val="1"/></c:valAx></c:plotArea></c:chart></c:chartSpace>')
        self.relations.append(('chart', f'../charts/chart{self.number}_{len(self.charts)}.xml'))
        self._frame(CHART, f'<c:chart xmlns:c="{CHART}" r:id="rId{len(self.relations)}"/>', frame)

    def _timing(self):
        effects = ''.join(
            f'<p:par><p:cTn id="{10 * i + 3}" fill="hold"><p:stCondLst><p:cond delay="indefinite"/></p:stCondLst>'
            f'<p:childTnLst><p:par><p:cTn id="{10 * i + 4}" fill="hold"><p:stCondLst><p:cond delay="0"/></p:stCondLst>'
            f'<p:childTnLst><p:par><p:cTn id="{10 * i + 5}" presetID="1" presetClass="exit" presetSubtype="0" fill="hold" '
            'nodeType="clickEffect"><p:stCondLst><p:cond delay="0"/></p:stCondLst><p:childTnLst><p:set><p:cBhvr>'
            f'<p:cTn id="{10 * i + 6}" dur="1" fill="hold"/><p:tgtEl><p:spTgt spid="{shape}"/></p:tgtEl><p:attrNameLst>'
            '<p:attrName>style.visibility</p:attrName></p:attrNameLst></p:cBhvr><p:to><p:strVal val="hidden"/></p:to></p:set>'
            '</p:childTnLst></p:cTn></p:par></p:childTnLst></p:cTn></p:par></p:childTnLst></p:cTn></p:par>'
            for i, shape in enumerate(self.taken_away))
        return ('<p:timing><p:tnLst><p:par><p:cTn id="1" dur="indefinite" restart="never" nodeType="tmRoot"><p:childTnLst>'
                '<p:seq concurrent="1" nextAc="seek"><p:cTn id="2" dur="indefinite" nodeType="mainSeq"><p:childTnLst>'
                f'{effects}</p:childTnLst></p:cTn></p:seq></p:childTnLst></p:cTn></p:par></p:tnLst></p:timing>')

    def xml(self):
        back = f'<p:bg><p:bgPr>{self.background}<a:effectLst/></p:bgPr></p:bg>' if self.background else ''
        return (f'{HEAD}<p:sld {NS}{" show=" + chr(34) + "0" + chr(34) if self.hidden else ""}><p:cSld>{back}{tree("".join(self.shapes))}'
                f'</p:cSld>{self.transition}{self._timing() if self.taken_away else ""}</p:sld>')


def footer(ident, words, place=''):
    return (f'<p:sp><p:nvSpPr><p:cNvPr id="{ident}" name="Footer {ident}"/><p:cNvSpPr/><p:nvPr><p:ph type="ftr" sz="quarter" '
            f'idx="11"/></p:nvPr></p:nvSpPr><p:spPr>{place}</p:spPr><p:txBody><a:bodyPr/><a:lstStyle/>{words}</p:txBody></p:sp>')


def tree(shapes):
    return ('<p:spTree><p:nvGrpSpPr><p:cNvPr id="1" name=""/><p:cNvGrpSpPr/><p:nvPr/></p:nvGrpSpPr><p:grpSpPr/>'
            f'{shapes}</p:spTree>')


class Pptx:
    def __init__(self, size=STANDARD, title='', author='', description='', created='', modified='', on_master=''):
        self.size = size
        self.core = (title, author, description, created, modified)
        self.on_master = on_master  # words that every slide shows in its corner
        self.slides = []

    def slide(self, hidden=False):
        self.slides.append(Slide(len(self.slides) + 1, hidden))
        return self.slides[-1]

    def save(self, path):
        parts = {'_rels/.rels': relations([('officeDocument', 'ppt/presentation.xml'),
                                           ('core', 'docProps/core.xml')]),
                 'docProps/core.xml': self._core(), 'ppt/presentation.xml': self._presentation(),
                 'ppt/theme/theme1.xml': THEME, 'ppt/theme/theme2.xml': THEME,
                 'ppt/slideMasters/slideMaster1.xml': self._master(),
                 'ppt/slideMasters/_rels/slideMaster1.xml.rels': relations(
                     [('slideLayout', '../slideLayouts/slideLayout1.xml'), ('theme', '../theme/theme1.xml')]),
                 'ppt/slideLayouts/slideLayout1.xml': f'{HEAD}<p:sldLayout {NS}><p:cSld>{tree(self._footer())}</p:cSld></p:sldLayout>',
                 'ppt/slideLayouts/_rels/slideLayout1.xml.rels': relations([('slideMaster', '../slideMasters/slideMaster1.xml')]),
                 'ppt/notesMasters/notesMaster1.xml': f'{HEAD}<p:notesMaster {NS}><p:cSld>{tree("")}</p:cSld>{COLOURS}</p:notesMaster>',
                 'ppt/notesMasters/_rels/notesMaster1.xml.rels': relations([('theme', '../theme/theme2.xml')])}
        links = [('slideMaster', 'slideMasters/slideMaster1.xml'), ('notesMaster', 'notesMasters/notesMaster1.xml'),
                 ('theme', 'theme/theme1.xml')]
        media = {}
        for slide in self.slides:
            links.append(('slide', f'slides/slide{slide.number}.xml'))
            if slide.note is not None:
                self._add_note(parts, slide)
            parts[f'ppt/slides/slide{slide.number}.xml'] = slide.xml()
            parts[f'ppt/slides/_rels/slide{slide.number}.xml.rels'] = relations(slide.relations)
            for i, chart in enumerate(slide.charts, 1):
                parts[f'ppt/charts/chart{slide.number}_{i}.xml'] = chart
            media |= {f'ppt/media/{name}': data for name, data in slide.media.items()}
        parts['ppt/_rels/presentation.xml.rels'] = relations(links)
        parts['[Content_Types].xml'] = self._types(parts, media)
        with zipfile.ZipFile(path, 'w', zipfile.ZIP_DEFLATED) as archive:
            for name, data in [*parts.items(), *media.items()]:
                entry = zipfile.ZipInfo(name, (2020, 1, 1, 0, 0, 0))
                entry.compress_type = zipfile.ZIP_DEFLATED
                archive.writestr(entry, data if isinstance(data, bytes) else data.encode())

    @staticmethod
    def _add_note(parts, slide):
        words = ''.join(paragraph(line) for line in slide.note.split('\n'))
        note = ('<p:sp><p:nvSpPr><p:cNvPr id="2" name="Notes 2"/><p:cNvSpPr/><p:nvPr><p:ph type="body" idx="1"/></p:nvPr>'
                '</p:nvSpPr><p:spPr><a:xfrm><a:off x="685800" y="4400550"/><a:ext cx="5486400" cy="3600450"/></a:xfrm>'
                f'</p:spPr><p:txBody><a:bodyPr/>{words}</p:txBody></p:sp>')
        parts[f'ppt/notesSlides/notesSlide{slide.number}.xml'] = f'{HEAD}<p:notes {NS}><p:cSld>{tree(note)}</p:cSld></p:notes>'
        parts[f'ppt/notesSlides/_rels/notesSlide{slide.number}.xml.rels'] = relations(
            [('notesMaster', '../notesMasters/notesMaster1.xml'), ('slide', f'../slides/slide{slide.number}.xml')])
        slide.relations.append(('notesSlide', f'../notesSlides/notesSlide{slide.number}.xml'))

    def _core(self):
        title, author, description, created, modified = map(escape, self.core)
        dates = ''.join(f'<dcterms:{name} xsi:type="dcterms:W3CDTF">{when}</dcterms:{name}>'
                        for name, when in (('created', created), ('modified', modified)) if when)
        return (f'{HEAD}<cp:coreProperties xmlns:cp="http://schemas.openxmlformats.org/package/2006/metadata/core-properties" '
                'xmlns:dc="http://purl.org/dc/elements/1.1/" xmlns:dcterms="http://purl.org/dc/terms/" '
                f'xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance"><dc:title>{title}</dc:title><dc:creator>{author}'
                f'</dc:creator><dc:description>{description}</dc:description>{dates}</cp:coreProperties>')

    def _presentation(self):
        slides = ''.join(f'<p:sldId id="{255 + slide.number}" r:id="rId{3 + slide.number}"/>' for slide in self.slides)
        width, height = self.size
        return (f'{HEAD}<p:presentation {NS}><p:sldMasterIdLst><p:sldMasterId id="2147483648" r:id="rId1"/></p:sldMasterIdLst>'
                f'<p:notesMasterIdLst><p:notesMasterId r:id="rId2"/></p:notesMasterIdLst><p:sldIdLst>{slides}</p:sldIdLst>'
                f'<p:sldSz cx="{emu(width)}" cy="{emu(height)}"/><p:notesSz cx="6858000" cy="9144000"/></p:presentation>')

    def _footer(self):
        """At the bottom, when a slide has one."""
        width, height = self.size
        place = (f'<a:xfrm><a:off x="{emu(width / 3)}" y="{emu(height - 40)}"/><a:ext cx="{emu(width / 3)}" cy="{emu(30)}"/>'
                 '</a:xfrm><a:prstGeom prst="rect"><a:avLst/></a:prstGeom>')
        return footer(9, '<a:p/>', place) if any(slide.has_footer for slide in self.slides) else ''

    def _master(self):
        corner = Slide(0)
        if self.on_master:
            corner.box(self.on_master, (self.size[0] - 240, self.size[1] - 40, 230, 30), size=12)
        return (f'{HEAD}<p:sldMaster {NS}><p:cSld><p:bg><p:bgPr><a:solidFill><a:srgbClr val="FFFFFF"/></a:solidFill>'
                f'<a:effectLst/></p:bgPr></p:bg>{tree("".join(corner.shapes) + self._footer())}</p:cSld>{COLOURS}<p:sldLayoutIdLst>'
                '<p:sldLayoutId id="2147483649" r:id="rId1"/></p:sldLayoutIdLst></p:sldMaster>')

    @staticmethod
    def _types(parts, media):
        kinds = {'ppt/presentation.xml': 'presentation.main', 'ppt/slides/': 'slide', 'ppt/slideLayouts/': 'slideLayout',
                 'ppt/slideMasters/': 'slideMaster', 'ppt/notesSlides/': 'notesSlide', 'ppt/notesMasters/': 'notesMaster'}
        others = {'ppt/theme/': 'application/vnd.openxmlformats-officedocument.theme+xml',
                  'ppt/charts/': 'application/vnd.openxmlformats-officedocument.drawingml.chart+xml',
                  'docProps/core.xml': 'application/vnd.openxmlformats-package.core-properties+xml'}
        types = {start: f'{CONTENT}.{kind}+xml' for start, kind in kinds.items()} | others
        overrides = ''.join(f'<Override PartName="/{name}" ContentType="{kind}"/>' for name in parts if '_rels' not in name
                            for start, kind in types.items() if name.startswith(start))
        films = ''.join(f'<Default Extension="{suffix}" ContentType="{kind}"/>'
                        for suffix, kind in (('mp4', 'video/mp4'), ('wav', 'audio/x-wav')) if any(name.endswith(suffix) for name in media))
        return (f'{HEAD}<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">'
                '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
                '<Default Extension="xml" ContentType="application/xml"/><Default Extension="png" ContentType="image/png"/>'
                f'{films}{overrides}</Types>')


def relations(links):
    core = 'http://schemas.openxmlformats.org/package/2006/relationships/metadata/core-properties'
    lines = ''.join(f'<Relationship Id="rId{i}" Type="{core if kind == "core" else f"{REL}/{kind}"}" Target="{target}"/>'
                    for i, (kind, target) in enumerate(links, 1))
    return f'{HEAD}<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">{lines}</Relationships>'


COLOURS = ('<p:clrMap bg1="lt1" tx1="dk1" bg2="lt2" tx2="dk2" accent1="accent1" accent2="accent2" accent3="accent3" '
           'accent4="accent4" accent5="accent5" accent6="accent6" hlink="hlink" folHlink="folHlink"/>')
_FILL = '<a:solidFill><a:schemeClr val="phClr"/></a:solidFill>'
_LINE = f'<a:ln w="9525">{_FILL}</a:ln>'
THEME = (f'{HEAD}<a:theme {NS} name="Harbour"><a:themeElements><a:clrScheme name="Harbour">' + ''.join(
    f'<a:{name}><a:srgbClr val="{value}"/></a:{name}>' for name, value in zip(
        'dk1 lt1 dk2 lt2 accent1 accent2 accent3 accent4 accent5 accent6 hlink folHlink'.split(),
        '000000 FFFFFF 1F3A5F E8EEF4 2F6DA8 C8553D 5B8C5A E0A030 6A4C93 3D9CA8 0563C1 954F72'.split())) +
    '</a:clrScheme><a:fontScheme name="Harbour">' + ''.join(
        f'<a:{kind}><a:latin typeface="Liberation Sans"/><a:ea typeface=""/><a:cs typeface=""/></a:{kind}>'
        for kind in ('majorFont', 'minorFont')) +
    f'</a:fontScheme><a:fmtScheme name="Harbour"><a:fillStyleLst>{_FILL * 3}</a:fillStyleLst><a:lnStyleLst>{_LINE * 3}'
    f'</a:lnStyleLst><a:effectStyleLst>{"<a:effectStyle><a:effectLst/></a:effectStyle>" * 3}</a:effectStyleLst>'
    f'<a:bgFillStyleLst>{_FILL * 3}</a:bgFillStyleLst></a:fmtScheme></a:themeElements></a:theme>')
