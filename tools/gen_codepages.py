#!/usr/bin/env python3
"""Generates the code page tables in src/runtime/codepages/ from Python's codecs.

Run from anywhere: python3 tools/gen_codepages.py. Python is needed only to regenerate; the
generated C++ is committed.

Each page keeps only the byte sequences that round-trip: a sequence is a character only when
that character encodes back to exactly the same bytes. Everything else is left out of the
tables, so the decoder escapes it byte by byte and Encode(Decode(bytes)) == bytes always.

Tables per page:
  single[256]       the character of each lone byte, 0 when the byte does not decode alone
  leadRow[256]      0 for a byte that is not a lead byte, else its row in trail[][256]
  trail[n][256]     the character of lead+trail, 0 when the pair does not decode (row 0 is empty)
  encodeRow[256]    the block of each high byte of a character in encodeBlock[][256]
  encodeBlock[n][256]  the bytes of a character: a byte value, or lead << 8 | trail; 0 = none
"""

import codecs
import os
import sys

# (Windows code page, Python codec). 936 is Windows' GBK.
PAGES = [
    (874, "cp874"),
    (1250, "cp1250"),
    (1251, "cp1251"),
    (1252, "cp1252"),
    (1253, "cp1253"),
    (1254, "cp1254"),
    (1255, "cp1255"),
    (1256, "cp1256"),
    (1257, "cp1257"),
    (1258, "cp1258"),
    (932, "cp932"),
    (936, "gbk"),
    (949, "cp949"),
    (950, "cp950"),
]
DOUBLE_BYTE = {932, 936, 949, 950}

# Windows' cp936 has the euro sign as the single byte 0x80, which Python's gbk codec lacks.
EXTRA_SINGLE = {936: {0x80: 0x20AC}}

OUT_DIR = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "src", "runtime",
                       "codepages")


def decode_one(data, codec):
    """The single BMP character `data` decodes to, or None."""
    try:
        text = data.decode(codec)
    except UnicodeDecodeError:
        return None
    if len(text) != 1 or ord(text) > 0xFFFF or 0xD800 <= ord(text) <= 0xDFFF:
        return None
    return ord(text)


def encodes_to(char, codec, data):
    try:
        return chr(char).encode(codec) == data
    except UnicodeEncodeError:
        return False


def build_page(number, codec):
    single = [0] * 256
    for byte in range(256):
        data = bytes([byte])
        char = decode_one(data, codec)
        if char is not None and encodes_to(char, codec, data):
            single[byte] = char
    for byte, char in EXTRA_SINGLE.get(number, {}).items():
        single[byte] = char
    for byte in range(0x80):
        if single[byte] != byte:
            sys.exit(f"cp{number}: byte {byte:#04x} is not ASCII; the ASCII fast path needs it")

    rows = [[0] * 256]
    lead_row = [0] * 256
    if number in DOUBLE_BYTE:
        for lead in range(0x80, 0x100):
            if single[lead]:
                continue
            row = [0] * 256
            for trail in range(256):
                data = bytes([lead, trail])
                char = decode_one(data, codec)
                if char is not None and encodes_to(char, codec, data):
                    row[trail] = char
            if any(row):
                lead_row[lead] = len(rows)
                rows.append(row)

    encode = {}
    for byte in range(256):
        if single[byte] or byte == 0:
            encode[single[byte]] = byte
    for lead in range(256):
        for trail, char in enumerate(rows[lead_row[lead]] if lead_row[lead] else []):
            if char:
                if char in encode:
                    sys.exit(f"cp{number}: U+{char:04X} decodes from two byte sequences")
                encode[char] = lead << 8 | trail
    return single, lead_row, rows, encode


def encode_blocks(encode):
    blocks = [[0] * 256]
    encode_row = [0] * 256
    for high in range(256):
        block = [encode.get(high << 8 | low, 0) for low in range(256)]
        if high == 0:
            blocks[0] = block  # ASCII lives here; the block is never shared
            continue
        if any(block):
            encode_row[high] = len(blocks)
            blocks.append(block)
    if len(blocks) > 255:
        sys.exit("too many encode blocks for a byte index")
    # Block 0 holds U+0000..U+00FF; high bytes without characters point to an empty block.
    empty = len(blocks)
    blocks.append([0] * 256)
    for high in range(1, 256):
        if encode_row[high] == 0:
            encode_row[high] = empty
    return encode_row, blocks


def array(values, width, per_line):
    lines = []
    for start in range(0, len(values), per_line):
        chunk = values[start:start + per_line]
        lines.append("    " + ", ".join(f"0x{v:0{width}X}" for v in chunk) + ",")
    return "\n".join(lines)


def table_2d(rows, width):
    parts = []
    for row in rows:
        parts.append("   {\n" + array(row, width, 12) + "\n    },")
    return "\n".join(parts)


def write_page(number, codec):
    single, lead_row, rows, encode = build_page(number, codec)
    encode_row, blocks = encode_blocks(encode)
    double = number in DOUBLE_BYTE
    # The tables are data, kept in Cp<n>.inc; Cp<n>.cpp only names them as one CodePageTable.
    data = []
    data.append(f"// Code page {number} tables. Generated by tools/gen_codepages.py from Python's "
                f"{codec}; do not edit.")
    data.append("// clang-format off")
    data.append("constexpr char16_t kSingle[256] = {")
    data.append(array(single, 4, 12))
    data.append("};")
    if double:
        data.append("")
        data.append("constexpr std::uint8_t kLeadRow[256] = {")
        data.append(array(lead_row, 2, 16))
        data.append("};")
        data.append("")
        data.append(f"constexpr char16_t kTrail[{len(rows)}][256] = {{")
        data.append(table_2d(rows, 4))
        data.append("};")
    data.append("")
    data.append("constexpr std::uint8_t kEncodeRow[256] = {")
    data.append(array(encode_row, 2, 16))
    data.append("};")
    data.append("")
    data.append(f"constexpr std::uint16_t kEncodeBlock[{len(blocks)}][256] = {{")
    data.append(table_2d(blocks, 4))
    data.append("};")
    data.append("")
    out = []
    out.append(f"// Code page {number}: the generated tables of Cp{number}.inc as one CodePageTable. "
               f"Generated by tools/gen_codepages.py; do not edit.")
    out.append('#include "runtime/codepages/CodePageTable.h"')
    out.append("")
    out.append("namespace vb::codepages {")
    out.append("namespace {")
    out.append(f'#include "runtime/codepages/Cp{number}.inc"')
    out.append("}  // namespace")
    out.append("")
    lead_args = "kLeadRow, kTrail" if double else "nullptr, nullptr"
    out.append(f"extern const CodePageTable kCp{number} = {{{number}, kSingle, {lead_args}, "
               f"kEncodeRow, kEncodeBlock}};")
    out.append("")
    out.append("}  // namespace vb::codepages")
    out.append("")
    for name, lines in ((f"Cp{number}.inc", data), (f"Cp{number}.cpp", out)):
        with open(os.path.join(OUT_DIR, name), "w", encoding="ascii", newline="\n") as file:
            file.write("\n".join(lines))
    print(f"cp{number}: {sum(1 for c in single if c)} single bytes, {len(rows) - 1} lead bytes, "
          f"{len(encode)} characters, {len(blocks)} encode blocks")


def main():
    os.makedirs(OUT_DIR, exist_ok=True)
    for number, codec in PAGES:
        codecs.lookup(codec)
        write_page(number, codec)


if __name__ == "__main__":
    main()
