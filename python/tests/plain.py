"""The library called without the package's own rules: tight arrays, and arguments in the order of the header."""
import ctypes
import os

import numpy as np
from tolkcolor._shapes import plane_shapes
from tolkcolor._table import FUNCTIONS

NUMBERS = {"uint8_t": ctypes.c_uint8, "int16_t": ctypes.c_int16, "uint16_t": ctypes.c_uint16,
           "int32_t": ctypes.c_int32, "uint32_t": ctypes.c_uint32, "int64_t": ctypes.c_int64,
           "float": ctypes.c_float, "double": ctypes.c_double}
library = ctypes.CDLL(os.environ["TOLKCOLOR_LIBRARY"])


def structure(kind, values):
    number = ctypes.c_int64 if kind.endswith("L") else ctypes.c_int32
    fields = [(f"field{i}", number) for i in range(len(values))]
    return type(kind, (ctypes.Structure,), {"_fields_": fields})(*values)


def pointers(planes):
    return (ctypes.c_void_p * len(planes))(*(plane.ctypes.data for plane in planes))


def steps(planes, kind, per_sample):
    values = [plane.strides[0] // (plane.itemsize if per_sample else 1) for plane in planes]
    return (NUMBERS[kind] * len(values))(*values)


def vector(kind, values):
    return None if values is None else np.ascontiguousarray(values, np.float64 if "double" in kind else np.float32)


def random_planes(random, side, dtype, size, bits=0):
    """Contiguous planes of any samples; floats are 0..1 in steps that sums do not round."""
    planes = []
    for shape in plane_shapes(side, size, bits):
        samples = random.integers(0, 256, shape + (dtype.itemsize,), np.uint8)
        if dtype.kind == "f":
            planes.append((samples[..., 0] / 256).astype(dtype))
        else:
            planes.append(samples.view(dtype)[..., 0].copy())
    return planes


def status_of(name, src, dst, sizes, arguments):
    """Calls a function on contiguous planes; its destination is written in place."""
    function, alive, values = FUNCTIONS[name], [], []
    for parameter in function.parameters:
        kind, label = parameter.kind.replace("const ", "").split("*")[0], parameter.label
        planes = src if label.startswith("src") and not label.startswith("srcDst") else dst
        chroma = planes[1:] if "CbCr" in label else planes
        if label in sizes:
            values.append(structure(parameter.kind, sizes[label]))
        elif label == "bufferStep":
            values.append(ctypes.c_int32(arguments["buffer"].strides[0]))
        elif "Step" in label:
            value = steps(chroma, kind, function.element_steps)
            values.append(value if "[" in label else value[0])
        elif label.startswith(("src", "dst")) and label != "dstBitOffset":
            values.append(pointers(chroma) if "[" in label else ctypes.c_void_p(chroma[0].ctypes.data))
        elif label == "buffer":
            values.append(ctypes.c_void_p(arguments["buffer"].ctypes.data))
        elif "[" in label:
            alive.append(vector(kind, arguments[parameter.name]))
            values.append(ctypes.c_void_p(None if alive[-1] is None else alive[-1].ctypes.data))
        else:
            values.append(NUMBERS[kind](arguments.get(label, 0)))
    return getattr(library, name)(*values)
