"""An example of a call of each function: a whole C program."""
import textwrap

import sides

VALUES = {"roi": "size", "srcSize": "size", "srcRect": "all", "vMin": "0", "vMax": "1", "noise": "0",
          "ditherType": "tolkDitherStucki", "levels": "16", "dstBitOffset": "0", "unused1": "0", "unused2": "0",
          "threshold": "128", "stripe": "21", "grid": "tolkGridRGGB", "reserved": "0", "bufferStep": "sizeof buffer[0]",
          "buffer": "buffer", "twist": "twist", "coeffs": "weights", "scale": "gains"}
ALPHA = {"uint8_t": "255", "uint16_t": "65535", "int16_t": "32767", "float": "1"}
CHANNEL_CODES = {"C1": 1, "C3": 3, "C4": 4, "AC4": 9}
OTHERS = {
    "tolkGetLibVersion": ["#include <stdio.h>", "#include <tolkcolor.h>", "", "int main(void) {",
                          "  const TolkLibraryVersion* version = tolkGetLibVersion();",
                          '  printf("%s %s\\n", version->libraryName, version->versionText);', "  return 0;", "}"],
    "tolkReduceBitsGetBufferSize": [
        "#include <tolkcolor.h>", "", "int main(void) {", "  uint32_t size;",
        "  return tolkReduceBitsGetBufferSize(3, 1920, 0, tolkDitherStucki, &size) < 0;  // three channels", "}"]}


def declared_side(lines, function, name):
    """Declares the arrays of one side; what its parameters are called with."""
    side = sides.make_side(function, "dst" if name == "dst" else "src")
    labels = [label for kind, label in function["parameters"]]
    array = next((label for label in labels if label.startswith(name + "[")), None)
    names = ([name + channel.capitalize() for plane in side.planes for channel in plane.channels] if array else
             [name + "Y", name + "CbCr"] if side.layout == "P2" else [name])
    declared = [f"{plane}[{sides.column_height(p)}][{sides.row_length(side, p)}]"
                for plane, p in zip(names, side.planes)]
    words = "" if side.form == "planes" else f"  // {sides.in_words(side)}"
    lines.append(f"  static {side.c_type} {', '.join(declared)};{words}")
    arguments = {}
    if array:
        const = "const " if name == "src" else ""
        lines.append(f"  {const}{side.c_type}* const {array} = {{{', '.join(plane + '[0]' for plane in names)}}};")
    for plane in names if side.layout == "P2" else names[:1]:
        arguments[plane if not array else name] = name if array else plane + "[0]"
        per_element = f" / sizeof {plane}[0][0]" if function["elementSteps"] else ""
        arguments[(plane if not array else name) + "Step"] = f"sizeof {plane}[0]" + per_element
    for kind, label in function["parameters"]:
        if label.startswith(name + "Step["):
            lines.append(f"  {kind} {label} = {{{', '.join(f'sizeof {plane}[0]' for plane in names)}}};")
            arguments[name + "Step"] = name + "Step"
    return arguments


def scratch(lines, function):
    """Bit reduction asks for its scratch memory's size, demosaicing has a fixed number of rows."""
    labels = {label: kind for kind, label in function["parameters"]}
    if "bufferStep" in labels:
        lines.append(f"  static {labels['buffer'].rstrip('*')} buffer[30][width + 6];")
    elif "buffer" in labels:
        code = CHANNEL_CODES[function["src"]["layout"]]
        lines += ["  uint32_t bufferSize;",
                  f"  if (tolkReduceBitsGetBufferSize({code}, width, 0, tolkDitherStucki, &bufferSize)) return 1;",
                  "  uint8_t* buffer = malloc(bufferSize);"]
        return True
    return False


def example(function):
    if function["name"] in OTHERS:
        return OTHERS[function["name"]]
    lines, arguments = ["  enum { width = 192, height = 108 };"], dict(VALUES)
    for name in ["srcDst"] if function["inPlace"] else ["src", "dst"]:
        arguments.update(declared_side(lines, function, name))
    parameters = {label.split("[")[0]: (kind, label) for kind, label in function["parameters"]}
    if "twist" in parameters:
        rows = "{0, 0, 1, 0}, {0, 1, 0, 0}, {1, 0, 0, 0}" + ", {0, 0, 0, 1}" * ("[4][4]" in parameters["twist"][1])
        lines.append(f"  const float {parameters['twist'][1]} = {{{rows}}};  // exchanges the first and third channel")
    for label, text in (("coeffs", "weights[3] = {0.2126f, 0.7152f, 0.0722f};  // BT.709"),
                        ("scale", "gains[3] = {1.9f, 1, 1.6f};  // of blue, green and red")):
        if label in parameters:
            kind = parameters[label][0]
            lines.append(f"  {kind} {text.replace('f,', ',').replace('f}', '}') if 'double' in kind else text}")
    if "alpha" in parameters:
        arguments["alpha"] = ALPHA[parameters["alpha"][0]]
    for label in ("srcRect", "srcSize", "roi"):
        if label in parameters:
            name, corner = ("all", "0, 0, ") if label == "srcRect" else ("size", "")
            lines.append(f"  const {parameters[label][0]} {name} = {{{corner}width, height}};")
    allocates = scratch(lines, function)
    if "bufferStep" in parameters:
        arguments["buffer"] = "buffer[0]"
    call = f"{function['name']}({', '.join(arguments[label] for label in parameters)})"
    statement = f"  TolkStatus status = {call};" if allocates else f"  return {call} < 0;"
    lines += textwrap.wrap(statement, 100, subsequent_indent=" " * 6)
    lines += ["  free(buffer);", "  return status < 0;"] if allocates else []
    head = ["#include <stdlib.h>"] if allocates else []
    return head + ["#include <tolkcolor.h>", "", "int main(void) {"] + lines + ["}"]


def test_program(functions):
    """One program that runs all the examples and names those that fail."""
    text, names = ["#include <stdio.h>", "#include <stdlib.h>", "#include <tolkcolor.h>"], []
    for function in functions:
        body = "\n".join(line for line in example(function) if not line.startswith("#include"))
        text.append(body.replace("int main(void)", f"static int {function['name']}_example(void)"))
        names.append(f'{{"{function["name"]}", {function["name"]}_example}},')
    text += ["static const struct { const char* name; int (*run)(void); } kExamples[] = {", *names, "};",
             "int main(void) {", "  int failures = 0;",
             "  for (size_t i = 0; i < sizeof kExamples / sizeof kExamples[0]; ++i)",
             '    if (kExamples[i].run()) printf("fails: %s\\n", kExamples[i].name), ++failures;',
             '  printf("%zu examples\\n", sizeof kExamples / sizeof kExamples[0]);', "  return failures != 0;", "}"]
    return "\n".join(text) + "\n"
