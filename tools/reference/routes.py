"""A page of tables: which function, or which two, lead from one 8-bit format to another."""
import sides

FORMATS = {
    "RGB": ("RGB", "C3"), "BGR": ("BGR", "C3"), "RGBA": ("RGB", "C4"), "BGRA": ("BGR", "C4"),
    "RGB planes": ("RGB", "P3"), "4:4:4": ("YCbCr", "P3"), "4:2:2": ("YCbCr422", "P3"), "YUYV": ("YCbCr422", "C2"),
    "YVYU": ("YCrCb422", "C2"), "UYVY": ("CbYCr422", "C2"), "I420": ("YCbCr420", "P3"), "NV12": ("YCbCr420", "P2"),
    "NV21": ("YCrCb420", "P2"), "4:1:1": ("YCbCr411", "P3"), "gray": ("Gray", "C1")}
COLOURS = ("RGB", "BGR")


def steps(functions):
    """The plain function of 8 bits for each pair of formats; a fourth channel that is not read may as well be alpha."""
    found = {}
    for f in functions:
        if f["src"]["sample"] == f["dst"]["sample"] == "8u" and not (f["variant"] or f["inPlace"] or f["src"]["tight"]):
            src, dst = sides.make_side(f, "src"), sides.make_side(f, "dst")
            if dst.layout != "AC4" and "Gamma" not in f["operation"] and not f["operation"].startswith("ColorTo"):
                found.setdefault(((src.space, src.layout.replace("AC4", "C4")), (dst.space, dst.layout)), f["name"])
    return found


def keeps_chroma(way, source, target):
    """Whether the format between has as much chroma as one of the two ends; colours do not go by luma and back."""
    a, b = sides.chroma_group(way[0])
    if source[0] in COLOURS and target[0] in COLOURS:
        return False
    ends = [sides.chroma_group(end[0]) for end in (source, target)]
    return way[0] != "Gray" and any(a <= c and b <= d for c, d in ends)


def cell(source, target, found):
    if (source, target) in found:
        return f"@ref {found[source, target]} \"1\""
    for way in sorted(FORMATS.values(), key=lambda way: sides.chroma_group(way[0]) != sides.chroma_group(target[0])):
        if (source, way) in found and (way, target) in found and keeps_chroma(way, source, target):
            return f"@ref {found[source, way]} \"a\" @ref {found[way, target]} \"b\""
    return " "


INTRODUCTION = """# Table of routes {#routes}

From the row's format to the column's, of 8 bits and by BT.601: **1** is the function that does it; **a** and then
**b** are two that do, where the format between loses no chroma that both ends have. 4:4:4, 4:2:2, 4:1:1 and I420 are
planes Y, Cb, Cr, YUYV, YVYU and UYVY packed pairs, NV12 and NV21 have a plane of chroma pairs. YV12 is I420 with two
pointers exchanged. A colour twist such as @ref tolkColorTwist32f_8u_C3R puts channels into another order without
loss.

"""


def page(functions):
    found = steps(functions)
    lines = ["| |" + "|".join(FORMATS) + "|", "|---" * (len(FORMATS) + 1) + "|"]
    for name, source in FORMATS.items():
        cells = ["—" if source == target else cell(source, target, found) for target in FORMATS.values()]
        lines.append(f"| **{name}** |" + "|".join(cells) + "|")
    return INTRODUCTION + "\n".join(lines) + "\n"
