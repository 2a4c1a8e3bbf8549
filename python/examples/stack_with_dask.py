#!/usr/bin/env python3
"""Converts a stack of images to NV12 on a local Dask cluster: stack_with_dask.py [IMAGES] [HEIGHT] [WIDTH].

Images are cut into bands of rows that begin at whole chroma groups, even rows in 4:2:0: so every band gives the bytes
that the whole image would give. Never cut columns: which of a function's formulas a sample takes depends on its
column."""
import sys

import dask
import dask.array as da
import numpy as np
import tolkcolor
from dask.distributed import Client, LocalCluster

GROUP = 2  # rows that share chroma
BAND = 64 * GROUP


def convert_band(block):
    """One block of the stack: images and rows, all columns and channels."""
    luma, chroma = zip(*(tolkcolor.convert(image, "RGB", "NV12") for image in block))
    return np.stack(luma), np.stack(chroma)


def convert_stack(stack):
    """Lazy arrays of luma (images, rows, columns) and of chroma pairs (images, rows / 2, columns / 2, 2)."""
    stack = stack.rechunk({0: 1, 1: BAND, 2: -1, 3: -1})
    lumas, chromas = [], []
    for image in stack.to_delayed()[:, :, 0, 0]:
        rows = stack.chunks[1]
        pairs = [dask.delayed(convert_band, nout=2)(block) for block in image]
        width = stack.shape[2]
        lumas.append([da.from_delayed(pair[0], (1, count, width), np.uint8) for pair, count in zip(pairs, rows)])
        chromas.append([da.from_delayed(pair[1], (1, -(-count // GROUP), -(-width // 2), 2), np.uint8)
                        for pair, count in zip(pairs, rows)])
    return tuple(da.concatenate([da.concatenate(bands, axis=1) for bands in images]) for images in (lumas, chromas))


def main(images=4, height=1080, width=1920):
    stack = da.random.RandomState(1).randint(0, 256, (images, height, width, 3), dtype=np.uint8)
    # Threads do: the interpreter's lock is released during a call.
    with LocalCluster(n_workers=1, threads_per_worker=2, processes=False, dashboard_address=None) as cluster, \
            Client(cluster):
        pictures, (luma, chroma) = dask.compute(stack, convert_stack(stack))
    for picture, y, cbcr in zip(pictures, luma, chroma):
        whole = tolkcolor.convert(picture, "RGB", "NV12")
        if not (np.array_equal(y, whole[0]) and np.array_equal(cbcr, whole[1])):
            raise SystemExit("a band differs from the whole image")
    print(f"{images} images of {width}x{height}: luma {luma.shape}, chroma {chroma.shape}, as from whole images")


if __name__ == "__main__":
    main(*map(int, sys.argv[1:]))
