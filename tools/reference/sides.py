"""The image on one side of a call: its planes, in words, as C arrays and as a picture."""
import re
from dataclasses import dataclass
from html import escape

C_TYPE = {"8u": "uint8_t", "16u": "uint16_t", "16s": "int16_t", "32s": "int32_t", "32u": "uint32_t", "32f": "float",
          "64f": "double", "12u": "uint8_t", "1u": "uint8_t"}
CHANNELS = {"YCC": ["Y", "C1", "C2"], "SBGR": ["B", "G", "R"], "Gray": ["gray"], "DemosaicAHD": ["R", "G", "B"]}
ANY_COLOURS = re.compile("Color|Gamma|ReduceBits")  # operations on channels of any meaning
GROUPS = {"422": (2, 1), "420": (2, 2), "411": (4, 1), "1620": (4, 4)}
ENCODINGS = {"v210": "v210: six pixels in four words of 32 bits", "word565": "a 16-bit word a pixel",
             "pack12": "12-bit samples, two in three bytes", "bits": "a bit a pixel, the high bit first",
             "mosaic": "a mosaic, one {} sample a site"}
SUBSAMPLING = re.compile("(422|420|411|1620)")
# Planes stand in the order that their names would have without the exchange of chroma.
NOT_EXCHANGED = {"tolkYCbCr420ToYCrCb420_8u_P2P3R", "tolkYCbCr420ToYCrCb420_Filter_8u_P2P3R"}


@dataclass
class Plane:
    channels: list  # of one element of a row, in memory order
    across: int = 1  # the pixels that an element serves
    down: int = 1


@dataclass
class Side:
    space: str
    layout: str
    sample: str
    form: str  # packed, pairs, planes, v210, word565, pack12, bits, mosaic
    planes: list

    @property
    def key(self):
        names = "".join(name for plane in self.planes for name in plane.channels)
        if self.form in ("packed", "planes"):
            return names + "".join(SUBSAMPLING.findall(self.space)) + "_" + self.layout
        return f"{self.space}_{self.form}" if self.form in ("pairs", "word565") else self.form

    @property
    def title(self):
        return self.key.replace("_pairs", " C2").replace("_word565", "").replace("_", " ")

    @property
    def c_type(self):
        return C_TYPE[self.sample]


def chroma_group(space):
    match = SUBSAMPLING.search(space)
    return GROUPS[match[1]] if match else (1, 1)


def channels(space, layout):
    plain = re.sub(r"(422|420|411|1620|v210|565|10)+$", "", space)
    if ANY_COLOURS.match(plain):
        return [f"c{i}" for i in range(int(layout[-1]))] if layout[-1] != "1" else ["sample"]
    names = CHANNELS.get(plain) or (["sample"] if layout == "C1" else re.findall("C[brog]|[A-Za-z]", plain))
    return names + ["A"] * (layout[-1] == "4" and len(names) == 3)


def make_side(function, which):
    side = function[which]
    space, layout, sample = side["space"], side["layout"], side["sample"]
    if which == "dst" and function["name"] in NOT_EXCHANGED:
        space = space.replace("YCrCb", "YCbCr")
    across, down = chroma_group(space)
    names = channels(space, layout)
    if layout == "P2":
        return Side(space, layout, sample, "planes", [Plane(names[:1]), Plane(names[1:], across, down)])
    if "P" in layout:
        return Side(space, layout, sample, "planes",
                    [Plane([name]) if i in (0, 3) else Plane([name], across, down) for i, name in enumerate(names)])
    mosaic = space == "CFA" and layout == "C1"
    form = ("v210" if space.endswith("v210") else "word565" if space.endswith("565") else
            {"12u": "pack12", "1u": "bits"}.get(sample, "mosaic" if mosaic else "pairs" if layout == "C2" else "packed"))
    return Side(space, layout, sample, form, [Plane(names)])


def pair_order(side):
    first, second = ("U", "V") if side.space.startswith("YUV") else ("Cb", "Cr")
    if side.space.startswith("YCr"):
        first, second = second, first
    return [first, "Y0", second, "Y1"] if side.space.startswith("Cb") else ["Y0", first, "Y1", second]


def row_length(side, plane):
    """The elements of a row, in C; the examples' width is a multiple of every group."""
    if side.form == "pairs" or side.form in ENCODINGS:
        return {"pairs": "width * 2", "v210": "width / 6 * 4", "pack12": "width / 2 * 3", "bits": "width / 8"}.get(
            side.form, "width")
    count = len(plane.channels)
    if plane.across > 1:
        return f"width / {plane.across // count}" if plane.across > count else "width"
    return f"width * {count}" if count > 1 else "width"


def column_height(plane):
    return f"height / {plane.down}" if plane.down > 1 else "height"


def in_words(side):
    bits = {"8u": "8-bit", "16u": "16-bit", "16s": "signed 16-bit", "32s": "signed 32-bit", "32f": "float",
            "64f": "double"}.get(side.sample, "")
    if side.form == "pairs":
        return f"pairs of pixels in four bytes {' '.join(pair_order(side))}"
    if side.form in ENCODINGS:
        return ENCODINGS[side.form].format(bits)
    if side.form == "packed":
        names = side.planes[0].channels
        order = f"channels {', '.join(names)}" if len(names) > 1 else "one channel"
        unused = ", the fourth not computed" if side.layout == "AC4" else ""
        return f"{order}{' interleaved' if len(names) > 1 else ''}, {bits}{unused}"
    words = []
    for plane in side.planes:
        name = " ".join(plane.channels) + (" pairs" if len(plane.channels) > 1 else "")
        words.append(name if plane.across == 1 else f"{name} for each {plane.across} by {plane.down} pixels")
    if len(words) == 3 and words[1].partition(" ")[2] == words[2].partition(" ")[2] != "":
        words[1:] = [f"{side.planes[1].channels[0]} and {words[2]}"]
    return f"planes {', '.join(words)}, {bits}"


CELL, LINE = 27, 21
FILL = {"R": "#f2b3ae", "G": "#b5dcae", "B": "#aecbf2", "Y": "#e6e3d3", "Cb": "#c3d9f7", "Cr": "#f7ccc3",
        "U": "#c3d9f7", "V": "#f7ccc3"}


class Picture:
    def __init__(self):
        self.parts, self.width, self.height = [], 0, 0

    def reach(self, x, y):
        self.width, self.height = max(self.width, x), max(self.height, y)

    def cell(self, x, y, width, height, label, faint=False):
        fill = FILL.get(re.sub(r"(?<=[YRGBbr])( .*|\d+)$", "", label), "#dddde6")
        self.parts.append(f'<rect x="{x}" y="{y}" width="{width}" height="{height}" fill="{fill}" stroke="#667" '
                          + ('stroke-dasharray="2 2" fill-opacity=".35"/>' if faint else '/>'))
        tone = ' class="note"' if faint else ' fill="#223"'
        self.parts.append(f'<text x="{x + width / 2}" y="{y + height / 2 + 4}"{tone} text-anchor="middle">'
                          f"{escape(label)}</text>")
        self.reach(x + width, y + height)

    def note(self, x, y, text):
        self.parts.append(f'<text class="note" x="{x}" y="{y}">{escape(text)}</text>')
        self.reach(x + 6.3 * len(text), y + 4)

    def svg(self):
        width, height = int(self.width) + 3, int(self.height) + 3
        return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
                f'viewBox="-1 -1 {width} {height}" font-family="sans-serif" font-size="11"><style>.note{{fill:#445}}'
                '@media(prefers-color-scheme:dark){.note{fill:#bcc}}</style>' + "".join(self.parts) + "</svg>\n")


def row_of_cells(picture, x, y, labels, width=CELL, faint=()):
    for i, label in enumerate(labels):
        picture.cell(x + i * width, y, width, LINE, label, i in faint)


def picture(side):
    p = Picture()
    if side.form == "v210":
        samples = "Cb0 Y0 Cr0 Y1 Cb1 Y2 Cr1 Y3 Cb2 Y4 Cr2 Y5".split()
        for word in range(4):
            p.note(0, 24 * word + 15, f"word {word}")
            row_of_cells(p, 48, 24 * word, [""], 14, (0,))
            row_of_cells(p, 62, 24 * word, samples[3 * word:3 * word + 3][::-1], 62)
        p.note(48, 108, "bit 31 left, bit 0 right: 2 unused, 3 times 10")
    elif side.form == "word565":
        high, low = ("B", "R") if side.space.startswith("RGB") else ("R", "B")
        for x, bits, label in ((0, 5, high), (5, 6, "G"), (11, 5, low)):
            p.cell(14 * x, 0, 14 * bits, LINE, f"{label} {15 - x}..{16 - x - bits}")
    elif side.form == "pack12":
        for x, nibbles, label in ((0, 2, "a 11..4"), (2, 1, "a 3..0"), (3, 1, "b 11..8"), (4, 2, "b 7..0")):
            p.cell(44 * x, 0, 44 * nibbles, LINE, label)
        for byte in range(3):
            p.note(88 * byte + 28, 36, f"byte {byte}")
    elif side.form == "bits":
        row_of_cells(p, 0, 0, [f"x {i}" for i in range(8)], 32)
        p.note(0, 36, "bit 7")
        p.note(226, 36, "bit 0")
    elif side.form == "mosaic":
        for row in range(4):
            row_of_cells(p, 0, LINE * row, ["RG", "GB"][row % 2] * 3)
        p.note(0, 4 * LINE + 15, "grid tolkGridRGGB")
    elif side.form in ("packed", "pairs"):
        labels = pair_order(side) if side.form == "pairs" else side.planes[0].channels
        count, cell = (8 if len(labels) == 1 else 2 if side.form == "pairs" else 3), 46 if len(labels) == 1 else CELL
        for row in range(2):
            p.note(0, (LINE + 5) * row + 15, f"row {row}")
            for group in range(count if len(labels) > 1 else 4):
                x = 40 + group * (len(labels) * cell + 4)
                row_of_cells(p, x, (LINE + 5) * row, labels, cell, (3,) if side.layout == "AC4" else ())
    else:
        y, rows = 0, max(2, max(plane.down for plane in side.planes))
        for plane in side.planes:
            names, across, down = plane.channels, plane.across, plane.down
            p.note(0, y + 15, " ".join(names))
            for row in range(rows // down):
                for i in range(8 // across):
                    wide, high = CELL * across / len(names), LINE * down
                    for j, name in enumerate(names):
                        p.cell(44 + CELL * across * i + wide * j, y + high * row, wide, high, name,
                               name == "A" and side.layout != "C4")
            y += LINE * rows + 7
    return p.svg()
