#!/usr/bin/env python3
"""Makes the fonts of this folder from Debian's fonts-inter and fonts-jetbrains-mono (with fonttools).

They keep the letters of European languages and the signs that the widgets write, and bear names of their own, so
that pictures come out the same whatever fonts a machine has.
"""
import pathlib

from fontTools import subset
from fontTools.pens.t2CharStringPen import T2CharStringPen
from fontTools.pens.transformPen import TransformPen

INTER = "/usr/share/fonts/opentype/inter/Inter-{}.otf"
MONO = "/usr/share/fonts/truetype/jetbrains-mono/JetBrainsMono-{}.ttf"
FONTS = [("Vantel Sans", style, INTER) for style in ("Regular", "Medium", "SemiBold", "Bold")]
FONTS += [("Vantel Mono", style, MONO) for style in ("Regular", "Bold")]
RANGES = [(0x20, 0x7E), (0xA0, 0x17F), (0x218, 0x21B), (0x370, 0x3FF), (0x400, 0x45F), (0x2010, 0x2026),
          (0x2030, 0x203A), (0x20AC, 0x20AC), (0x2122, 0x2122), (0x2190, 0x2193), (0x2212, 0x2212),
          (0x25B8, 0x25B8), (0x26A0, 0x26A0), (0xFFFD, 0xFFFD)]
FAMILY, STYLE, FULL, POSTSCRIPT, FAMILY_OF_ALL, STYLE_OF_ALL = 1, 2, 4, 6, 16, 17


def names(family, style):
    """Two of four styles are known to every program; the others need the longer names."""
    is_plain = style in ("Regular", "Bold")
    return {FAMILY: family if is_plain else f"{family} {style}", STYLE: style if is_plain else "Regular",
            FULL: f"{family} {style}", POSTSCRIPT: f"{family}-{style}".replace(" ", ""),
            FAMILY_OF_ALL: family, STYLE_OF_ALL: style}


def rename(font, family, style):
    table = font["name"]
    for name, text in names(family, style).items():
        table.removeNames(nameID=name)
        table.setName(text, name, 3, 1, 0x409)
    if "CFF " in font:
        cff = font["CFF "].cff
        cff.fontNames = [f"{family}-{style}".replace(" ", "")]
        cff.topDictIndex[0].FamilyName = family
        cff.topDictIndex[0].FullName = f"{family} {style}"


def add_small_triangle(font):
    """Inter has the large triangle alone; half its size, in the middle of a capital, is the small one."""
    name = font.getBestCmap().get(0x25B6)
    if "CFF " not in font or 0x25B8 in font.getBestCmap():
        return
    width, bearing = (value // 2 for value in font["hmtx"][name])
    pen = T2CharStringPen(width, None)
    font.getGlyphSet()[name].draw(TransformPen(pen, (0.5, 0, 0, 0.5, 0, 512)))
    top = font["CFF "].cff.topDictIndex[0]
    old = top.CharStrings[name]
    top.CharStrings[name] = pen.getCharString(private=old.private, globalSubrs=old.globalSubrs)
    font["hmtx"][name] = (width, bearing)
    for table in font["cmap"].tables:
        table.cmap[0x25B8] = name


def made(family, style, source):
    options = subset.Options(layout_features=["kern", "mark", "mkmk", "ccmp", "locl"], name_IDs=["*"],
                             hinting=False, notdef_outline=True, glyph_names=False)
    font = subset.load_font(source.format(style), options)
    add_small_triangle(font)
    subsetter = subset.Subsetter(options)
    subsetter.populate(unicodes=[c for first, last in RANGES for c in range(first, last + 1)])
    subsetter.subset(font)
    rename(font, family, style)
    font["head"].modified = font["head"].created
    font.recalcTimestamp = False
    return font


def main():
    folder = pathlib.Path(__file__).parent
    for family, style, source in FONTS:
        ending = source[-3:]
        made(family, style, source).save(folder / f"{family.replace(' ', '')}-{style}.{ending}")


main()
