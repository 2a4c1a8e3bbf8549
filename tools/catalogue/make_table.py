#!/usr/bin/env python3
"""Derives the table of all functions from the public header.

make_table.py HEADER > function_table.inc: the table; the including file defines FUNCTION_SCOPE (empty for the library,
`name::` for another implementation).
make_table.py HEADER NAME > declarations.h: all functions but the version query, declared in namespace NAME."""
import re
import sys

LAYOUT = r"(?:AP4|AC4|[CP][1-4])"
NAME = re.compile(
    r"tolk(?P<operation>[A-Za-z0-9]+?)"
    r"(?P<variants>(?:_(?:709CSC|709HDTV|Rev|Filter|Interlace|VNG))*)"
    r"_(?P<srcType>\d+[usf])(?P<dstType>\d+[usf])?"
    rf"_(?P<inPlace1>I?)(?P<srcLayout>{LAYOUT})(?P<dstLayout>{LAYOUT})?(?P<inPlace2>I?)R?(?:_L)?$")
SPACES = re.compile(r"([A-Za-z0-9]+?)To([A-Za-z0-9]+)$")
DECLARATION = re.compile(r"TOLK_API\s+([\w\s*]+?)\s*\b(tolk\w+)\(([^)]*)\);")
SUBSAMPLING = re.compile(r"(422|420|411|1620)(v210)?$")
PLANE_OF = {"": 0, "Y": 0, "CbCr": 1, "CrCb": 1}


def quoted(text):
    """A literal that knows its length: compilers count no further than some million characters."""
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"').replace("\n", "\\n") + '"sv'


def comment_text(comment):
    """The words of a /** */ comment without its frame."""
    lines = comment.strip()[3:-2].split("\n")
    return "\n".join(re.sub(r"^\s*\* ?", "", line).rstrip() for line in lines).strip()


def spaces(operation):
    match = SPACES.match(operation)
    if operation.startswith("ColorTwist"):
        return "Color", "Color"
    if operation == "DemosaicAHD":
        return "CFA", "RGB"
    if not match:  # one space: a chroma layout, or whatever the caller has
        return (operation if SUBSAMPLING.search(operation) else "Any",) * 2
    source, target = match.groups()
    if target == "BGRA":
        return source, "BGR"
    if SUBSAMPLING.fullmatch(target):  # YCbCr422To420: the target keeps the source's colour space
        target = SUBSAMPLING.sub("", source) + target
    if source.endswith("v210"):  # six pixels in four words to one word of 5, 6 and 5 bits a pixel, or one of gray
        return source, "Gray10" if target == "Gray" else target + "565"
    return source, target.replace("Gamma", "")


def argument(kind, name, element_steps):
    """The expression that binds one parameter to a Call. Steps of a Call are bytes."""
    for side in ("srcDst", "src", "dst"):
        match = re.fullmatch(side + r"(Y|CbCr|CrCb)?(Step)?(\[\d\])?", name)
        if not match:
            continue
        place = "dst" if side == "srcDst" else side
        part, step, array = match.groups()
        index = PLANE_OF[part or ""]
        element = kind.split("*")[0].strip()
        if step:
            element = element.replace("const ", "")
            value = f"c.{place}.step[{index}]"
            if element_steps:
                value += " / 4" if place == "src" else " / 2"
            return f"Steps<{element}>(c.{place})" if array else f"static_cast<{element}>({value})"
        return f"Planes<{element}>(c.{place})" if array else f"static_cast<{element}*>(c.{place}.plane[{index}])"
    if name == "srcRect":
        return f"rectangle<{kind}>(c)"
    if name == "srcSize":
        return f"mosaicSize<{kind}>(c)"
    if kind == "TolkSizeL":
        return "wideSize(c)"
    if name in ("coeffs[3]", "scale[3]"):
        return f"Weights<{kind.replace('const ', '')}>(c.{name[:-3]})"
    if name.startswith("twist["):
        return "Matrix(c.twist)"
    if name.startswith("unused"):
        return f"static_cast<{kind}>(~0u)"
    return f"static_cast<{kind}>(c.{name})"


def parameters(text):
    if text.strip() in ("", "void"):
        return []
    result = []
    for parameter in text.split(","):
        match = re.fullmatch(r"\s*(.*?)\s*(\w+(?:\[\d\])*)\s*", parameter, re.S)
        result.append((re.sub(r"\s+", " ", match.group(1)), match.group(2)))
    return result


def declarations(header):
    """What the header declares, in its order, with its words."""
    family, family_text, note = "", "", ""
    for token in re.finditer(r"/\* ==== (.*?) ==== \*/|(/\*\*(?:[^*]|\*(?!/))*\*/)|^(TOLK_API[^;]*;)", header, re.M):
        section, comment, declaration = token.groups()
        if section:
            family, family_text, note = section, "", ""
        elif comment:
            if note:  # two comments in a row: the first belongs to the family
                family_text = note
            note = comment_text(comment)
        else:
            returns, name, text = DECLARATION.match(declaration).groups()
            yield {"name": name, "family": family, "familyText": family_text, "text": note, "returns": returns,
                   "parameters": parameters(text)}
            note = ""


def functions(header):
    """The image functions: their declarations, and the sides of a call."""
    for declared in declarations(header):
        match = NAME.match(declared["name"])
        if not match:
            continue
        part = match.groupdict()
        source, target = spaces(part["operation"])
        v210 = source.endswith("v210")
        tight = not any("Step" in label for kind, label in declared["parameters"])
        target_layout = "C1" if v210 else part["dstLayout"] or part["srcLayout"]
        if part["variants"] == "_VNG":  # the fourth sample is not computed
            target_layout = "AC4"
        yield {
            **declared, "operation": part["operation"], "variant": part["variants"].strip("_"),
            "inPlace": bool(part["inPlace1"] or part["inPlace2"]), "elementSteps": v210,
            "src": {"space": source, "layout": part["srcLayout"], "sample": part["srcType"], "tight": tight},
            "dst": {"space": target, "layout": target_layout,
                    "sample": part["dstType"] or part["srcType"], "tight": tight}}


def cpp_side(side):
    return (f"{{{quoted(side['space'])}, {quoted(side['layout'])}, {quoted(side['sample'])}, "
            f"{str(side['tight']).lower()}}}")


def main():
    header = open(sys.argv[1], encoding="utf-8").read()
    if len(sys.argv) > 2:
        print(f'#pragma once\n#include "tolkcolor.h"\nnamespace {sys.argv[2]} {{')
        for match in DECLARATION.finditer(header):
            if match.group(2) != "tolkGetLibVersion":
                print(f"{match.group(1)} {match.group(2)}({match.group(3)});")
        print("}")
        return
    table = list(functions(header))
    for f in table:  # all constants: code that makes such a table takes half a minute to compile
        listed = ", ".join(f"{{{quoted(kind)}, {quoted(label)}}}" for kind, label in f["parameters"])
        print(f"static constexpr Parameter parametersOf_{f['name']}[] = {{{listed}}};")
    print("static constexpr Function kTable[] = {")
    for f in table:
        name = f["name"]
        call = ", ".join(argument(kind, label, f["elementSteps"]) for kind, label in f["parameters"])
        print(f"{{{quoted(name)}, {quoted(f['family'])}, {quoted(f['operation'])}, {quoted(f['variant'])},\n"
              f" {cpp_side(f['src'])},\n {cpp_side(f['dst'])},\n"
              f" {'true' if f['inPlace'] else 'false'}, parametersOf_{name},\n"
              f" {quoted(f['familyText'])},\n {quoted(f['text'])},\n"
              f" [] {{ return reinterpret_cast<void*>(&FUNCTION_SCOPE {name}); }},\n"
              f" [](void* f, const Call& c) {{ return reinterpret_cast<decltype(&{name})>(f)({call}); }}}},")
    print("};")


if __name__ == "__main__":
    main()
