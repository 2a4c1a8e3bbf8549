#!/usr/bin/env python3
"""Makes Doxygen's input from the public header.

make_reference.py HEADER FOLDER: in FOLDER/input the header with a group a family and, for every function, its
parameters, memory layouts and an example, and a page of direct and two-step routes; in FOLDER/html pictures of the
layouts. FOLDER/header.html, Doxygen's own, gets a button that copies an example.
make_reference.py HEADER --examples > examples.c: a program that runs every example."""
import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "catalogue"))
import examples
import make_table
import routes
import sides

COMMENT = r"/\*\*(?!<)(?:[^*]|\*(?!/))*\*/"
TOKEN = re.compile(rf"/\* ==== (?P<section>.*?) ==== \*/|(?P<comment>{COMMENT})"
                   rf"(?=\s*(?:(?P<family>/\*\*(?!<))|TOLK_API[^;]*?\b(?P<name>tolk\w+)\())?")
PARAMETERS = {
    "roi": "size of the region in pixels", "srcSize": "size of the whole mosaic", "srcRect": "rectangle to convert",
    "alpha": "fourth channel of every pixel that is written", "twist": "the matrix", "vMin": "sample that stands for 0",
    "vMax": "sample that stands for 1", "coeffs": "weights of the channels 0, 1 and 2", "noise": "0 to 100",
    "scale": "gains of blue, green and red", "ditherType": "a TolkDitherType", "levels": "how many levels are left",
    "buffer": "scratch memory", "bufferStep": "bytes from one row of the scratch memory to the next",
    "stripe": "1, 4, 16, or 21 for a whole picture", "dstBitOffset": "bits before a row's first pixel",
    "threshold": "the largest sample that becomes 0", "grid": "place of the colours, such as #tolkGridRGGB",
    "reserved": "not read", "unused1": "not read", "unused2": "not read", "channelCode": "1, 3, 4, or 9 for AC4",
    "width": "pixels of a row", "size": "where the bytes needed are stored"}
COPY_BUTTON = ('<script type="text/javascript" src="$relpath^doxygen-awesome-fragment-copy-button.js"></script>\n'
               '<script type="text/javascript">DoxygenAwesomeFragmentCopyButton.init()</script>\n')
LEAD = re.compile(r"(?!Returns)([A-Z][\w,-]*(?: [\w,-]+){0,2})([.:])(?= )")
BREAK = re.compile(r"(?<=.{4}[,;:]) ((?:and |[A-Z]{,2}: |in [^,;=]{,40}, )?[A-Za-z]\w*'? = )")
MATRIX = re.compile(r"(?:\s+\d+){4}\s*$")


def inline(text, known):
    text = re.sub(r"(?<!`)\b_L\b", "`_L`", text).replace("<", "\\<").replace("@", "\\@")
    text = "".join(part.replace("\\<", "<") if i % 2 else part for i, part in enumerate(re.split("(`[^`]*`)", text)))
    return re.sub(r"\btolk\w+", lambda m: f"[{m[0]}](@ref {m[0]})" if m[0] in known else m[0], text)


def markup(text, known, leads=True):
    """Paragraphs and lists of the header as Doxygen's Markdown: an item's formulas each on a line of its own."""
    blocks = []
    for line in text.split("\n"):
        item = re.match(r"( *)- ", line)
        if not line:
            blocks.append(["", ""])
        elif item or not blocks or not blocks[-1][1]:
            blocks.append([item[0] if item else "", line[len(item[0]):] if item else line])
        elif MATRIX.match(line):
            blocks[-1][1] += "\n" + " ".join(f"{int(number):2}" for number in line.split())
        else:
            blocks[-1][1] += " " + line.strip()
    lines = []
    for mark, words in blocks:
        words, *matrix = words.split("\n")
        lead = LEAD.match(words) if leads and " = " not in words[:25] else None
        words = (f"<b>{lead[0]}</b>" if lead else "") + inline(words[lead.end() if lead else 0:], known)
        lines.append(mark + (BREAK.sub(r"<br>\1", words) if mark else words))
        if matrix:
            lines[-1] += "<pre>" + "\n".join(matrix) + "</pre>"
        if not mark.startswith(" "):
            lines.append("" if not mark else None)
    return "\n".join(line for line in lines if line is not None)


def returns(text, known):
    found = re.search(r"Returns (tolkStatusOk.*?)(?=\n\n|$)", text, re.S)
    return inline(re.sub(r"\s+", " ", found[1]), known) if found else None


def comment(lines):
    return "/** " + "\n".join(lines).replace("*/", "* /") + "\n */"


def figures(captioned_sides):
    each = "".join(f'<figure><img src="{side.key}.svg" alt="{sides.in_words(side)}"><figcaption>{caption}</figcaption>'
                   "</figure>" for side, caption in captioned_sides)
    return f'@htmlonly <div class="layouts">{each}</div> @endhtmlonly'


def parameter(function, kind, label):
    name = label.split("[")[0]
    match = re.match("(srcDst|src|dst)(Y|CbCr)?(Step)?$", name)
    if not match:
        words = PARAMETERS[name] if function.get("operation") not in ("Pack", "Unpack") else "size in samples"
    elif match[3]:
        unit = "elements" if function["elementSteps"] else "bytes"
        each = ", of each plane" if "[" in label else ""
        words = f"{unit} from one row of {match[1]}{match[2] or ''} to the next{each}"
    else:
        side = sides.make_side(function, "dst" if match[1] == "dst" else "src")
        words = sides.in_words(side)
        if match[2]:
            plane = side.planes[match[2] == "CbCr"]
            words = "luma plane" if match[2] == "Y" else f"{words.split(', ')[1].split(',')[0]}"
    direction = {"srcDst": "[in,out]", "dst": "[out]"}.get(match[1] if match and not match[3] else "", "[in]")
    return f"@param{'[out]' if name == 'size' else direction} {name} {words}"


def function_comment(function, status, known):
    lines = [markup(function["text"], known, leads=False), ""]
    lines += [parameter(function, kind, label) for kind, label in function["parameters"]]
    if status:
        lines.append(f"@return {status}")
    elif function["returns"] != "TolkStatus":
        lines.append("@return the record")
    if "src" in function:
        pair = [(sides.make_side(function, "src"), "source"), (sides.make_side(function, "dst"), "destination")]
        pair = [(pair[0][0], "in place")] if function["inPlace"] else pair
        lines.append(figures(pair))
    return comment(lines + ["@par Example", "@code{.c}", *examples.example(function), "@endcode"])


def group_name(section):
    return "family_" + re.sub(r"\W+", "_", section.lower())


def family_comment(section, text, functions, known):
    layouts = {side.key: side for f in functions for side in (sides.make_side(f, "src"), sides.make_side(f, "dst"))}
    return "/** @} */\n" + comment([
        f"@addtogroup {group_name(section)}", markup(text, known), "", "<b>Memory layouts</b>", "",
        figures((side, side.title) for side in layouts.values()), "@{"])


def grouped_header(header, declared, known):
    of_family, families = {}, {}
    for function in declared.values():
        of_family.setdefault(function["family"], []).append(function)
    section = "Records and status codes"

    def replacement(match):
        nonlocal section
        if match["section"]:
            section = match["section"]
            return f"/** @}} */\n/** @defgroup {group_name(section)} {section}\n * @{{ */"
        text = make_table.comment_text(match["comment"])
        if match["family"]:
            families[section] = text
            image_functions = [f for f in of_family[section] if "src" in f]
            return family_comment(section, text, image_functions, known)
        if match["name"]:
            function = declared[match["name"]]
            status = returns(text, known) or returns(families.get(section, ""), known)
            return function_comment(function, status, known)
        return match[0]

    head, body = header.split("#ifndef TOLKCOLOR_H", 1)
    start = body.index("/** Result of every")
    end = body.index("#ifdef __cplusplus", start)
    conventions = re.sub(r"^ ?\* ?", "", head.strip()[2:-2], flags=re.M).strip()
    fields = re.compile(r"^(  (?:\w+ )*\w+\*? (\w+));$", re.M)  # a name that says all needs no comment in the header
    return (comment(["@page conventions Conventions", markup(conventions, known)]) +
            "\n/** @file tolkcolor.h\n * @brief The one public header. */\n"
            f"/** @defgroup records {section}\n * @{{ */\n" + body[:start].split("#ifdef __cplusplus")[0] +
            TOKEN.sub(replacement, fields.sub(r"\1; /**< \2 */", body[start:end])) + "/** @} */\n")


def check_names(folder, known):
    """Every function that the guide names exists; a name may be cut short by a star."""
    for page in sorted(folder.glob("*.md")):
        for name, star in re.findall(r"\b(tolk[A-Z]\w*)(\*?)", page.read_text(encoding="utf-8")):
            if name not in known and not (star and any(each.startswith(name) for each in known)):
                sys.exit(f"{page}: no function {name}")


def main():
    header = pathlib.Path(sys.argv[1]).read_text(encoding="utf-8")
    image_functions = {f["name"]: f for f in make_table.functions(header)}
    declared = {d["name"]: image_functions.get(d["name"], d) for d in make_table.declarations(header)}
    if sys.argv[2] == "--examples":
        print(examples.test_program(declared.values()), end="")
        return
    known = set(declared) | set(re.findall(r"\btolk[A-Z]\w+(?= = )", header))
    check_names(pathlib.Path(__file__).resolve().parents[2] / "docs/guide", known)
    folder = pathlib.Path(sys.argv[2])
    for name in ("input", "html"):
        (folder / name).mkdir(exist_ok=True)
    (folder / "input/tolkcolor.h").write_text(grouped_header(header, declared, known), encoding="utf-8")
    (folder / "input/routes.md").write_text(routes.page(image_functions.values()), encoding="utf-8")
    for function in image_functions.values():
        for which in ("src", "dst"):
            side = sides.make_side(function, which)
            (folder / f"html/{side.key}.svg").write_text(sides.picture(side), encoding="utf-8")
    page = (folder / "header.html").read_text(encoding="utf-8")
    (folder / "header.html").write_text(page.replace("</head>", COPY_BUTTON + "</head>"), encoding="utf-8")


main()
