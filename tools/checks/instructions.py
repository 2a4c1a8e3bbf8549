#!/usr/bin/env python3
"""instructions.py base|v3 LIBRARY: every instruction is one that the processor class has, and none is fused."""
import re
import subprocess
import sys

EVEX, VEX = {"62"}, {"c4", "c5"}  # first byte after the prefixes; in 64-bit code nothing else begins with these
PREFIXES = {"26", "2e", "36", "3e", "64", "65", "66", "67", "f2", "f3"}
FUSED = r"vfn?m(add|sub)\w*"
ABOVE_SSSE3 = "|".join((
    r"blendv?p[sd]|dpp[sd]|extractps|insertps|movntdqa|mpsadbw|packusdw|pblendvb|pblendw|phminposuw|pmul(dq|ld)|ptest",
    r"pextr[bdq]|pinsr[bdq]|pextrw\s.*\)|p(max|min)(s[bd]|u[wd])|pmov[sz]x\w+|pcmpeqq|pcmpgtq|round[ps][sd]",  # 4.1
    r"crc32\w*|popcnt\w*|pcmp[ei]str[im]",  # 4.2
    r"extrq|insertq|movnts[sd]|lzcnt\w*|aes\w+|pclmul\w+|sha(1|256)\w+|gf2p8\w+|adcx|adox|movbe\w*"))
# What needs no EVEX prefix, but is not in x86-64-v3: ciphers, checksums, dot products, mask registers.
ABOVE_AVX2 = r"v?aes\w+|v?pclmul\w+|v?gf2p8\w+|v?sha(1|256|512)\w+|vsm[34]\w+|vpdp\w+|vpmadd52\w+|.*%k[0-7]\b.*"
CLASSES = {"base": (EVEX | VEX, ABOVE_SSSE3), "v3": (EVEX, ABOVE_AVX2)}
LINE = re.compile(r"\s*[0-9a-f]+:\t((?:[0-9a-f]{2} )+)\s*\t(.*)")


def main():
    encodings, mnemonics = CLASSES[sys.argv[1]]
    bad = re.compile(rf"(?:(?:rep|repz|data16|cs|ds|notrack)\s+)*(?:{FUSED}|{mnemonics})(?:\s|$)")
    output = subprocess.run(["objdump", "-dw", sys.argv[2]], check=True, capture_output=True, text=True).stdout
    faults, place, count, wide = [], "", 0, 0
    for line in output.splitlines():
        match = LINE.match(line)
        if not match:
            place = line if line.endswith(">:") else place
            continue
        count += 1
        code, text = match.groups()
        wide += "%ymm" in text
        first = next((byte for byte in code.split() if byte not in PREFIXES), "")
        if first in encodings or bad.match(text):
            faults.append(f"{place} {text}")
    if sys.argv[1] == "v3" and not wide:
        faults.append("no ymm register anywhere: this is not the AVX2 library")
    print(f"{count} instructions, {wide} with a ymm register, {len(faults)} faults", *faults[:40], sep="\n")
    sys.exit(bool(faults) or not count)


main()
