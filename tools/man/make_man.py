#!/usr/bin/env python3
"""make_man.py HEADER VERSION FOLDER: pages of section 3, one a family, with each function's name leading to its family's
page, and tolkcolor.3 over all of them."""
import itertools
import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "catalogue"))
from make_table import comment_text, declarations  # noqa: E402


def roff(text):
    """Words as they are: no minus becomes a hyphen, no line a request."""
    text = text.replace("\\", "\\e").replace("-", "\\-")
    return re.sub(r"^([.'])", r"\\&\1", text, flags=re.M)


def paragraphs(text):
    """Paragraphs apart, "- " items indented."""
    lines = []
    for line in text.split("\n"):
        if not line:
            lines.append(".PP")
        elif line.startswith("- "):
            lines.append(f".IP \\(bu 2\n{roff(line[2:])}")
        else:
            lines.append(roff(line.strip()))
    return re.sub(r"\.PP\n(?=\.IP)", "", "\n".join(lines))


def synopsis(function):
    listed = ", ".join(f"{kind} {name}" for kind, name in function["parameters"]) or "void"
    return f'.HP\n.B {roff(function["returns"])} {roff(function["name"])}({roff(listed)});'


def page(name, version, description, body):
    return (f'.TH {name} 3 "" "TolkColor {version}" "TolkColor"\n.SH NAME\n{roff(name)} \\- {roff(description)}\n{body}\n')


def short_name(family):
    return "tolkcolor-" + re.sub(r"[^a-z0-9]+", "-", family.lower()).strip("-")


def family_page(family, functions, version):
    lines = [".SH SYNOPSIS", ".nf", "#include <tolkcolor.h>", ".fi", ".ad l", ".nh"]
    lines += [synopsis(function) for function in functions]
    lines += [".ad b", ".hy", ".SH DESCRIPTION", paragraphs(functions[0]["familyText"])]
    lines.append(".SH FUNCTIONS")
    for function in functions:
        lines.append(f".TP\n.B {roff(function['name'])}\n{paragraphs(function['text']) or 'As above.'}")
    lines += [".SH SEE ALSO", ".BR tolkcolor (3)"]
    return page(short_name(family), version, f"TolkColor: {family}", "\n".join(lines))


def overview(header, families, version):
    head = re.sub(r"^ \* ?", "", header[2:header.index("*/")].strip(), flags=re.M)
    build = roff("cc program.c $(pkg-config --cflags --libs tolkcolor)")
    lines = [".SH SYNOPSIS", ".nf", "#include <tolkcolor.h>", "", build, ".fi", ".SH DESCRIPTION", paragraphs(head), ".SH STATUSES"]
    for name, value, text in re.findall(r"^  (tolkStatus\w+) = (-?\d+),? */\*\*< (.*?) \*/", header, re.M):
        lines.append(f".TP\n.BR {name} \" ({roff(value)})\"\n{roff(text)}")
    lines.append(".SH FAMILIES")
    for family in families:
        lines.append(f".TP\n.BR {roff(short_name(family))} (3)\n{roff(family)}")
    return page("tolkcolor", version, "image colour conversion", "\n".join(lines))


def main():
    header, version, folder = sys.argv[1:]
    header, folder = pathlib.Path(header).read_text(encoding="utf-8"), pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    families = []
    for family, functions in itertools.groupby(declarations(header), key=lambda function: function["family"]):
        functions = list(functions)
        families.append(family)
        name = short_name(family)
        (folder / f"{name}.3").write_text(family_page(family, functions, version), encoding="utf-8")
        for function in functions:
            (folder / f"{function['name']}.3").write_text(f".so man3/{name}.3\n", encoding="utf-8")
    (folder / "tolkcolor.3").write_text(overview(header, families, version), encoding="utf-8")


main()
