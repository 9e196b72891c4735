"""Message texts of CorvaneRes.dll, read back from the built library.

The cases never copy a message text: they ask for it by id (msg(5108)), so a
reworded message changes no test.
"""

import struct
from pathlib import Path


def strings_in_dll(dll_path):
    """Returns {message id: text} of the string tables of a built PE file."""
    data = Path(dll_path).read_bytes()
    pe = struct.unpack_from("<I", data, 0x3C)[0]
    sections, optional_size = struct.unpack_from("<HxxxxxxxxxxxxH", data, pe + 6)
    optional = pe + 24
    magic = struct.unpack_from("<H", data, optional)[0]
    directories = optional + (112 if magic == 0x20B else 96)
    rsrc_rva = struct.unpack_from("<I", data, directories + 2 * 8)[0]
    table = optional + optional_size

    def offset(rva):
        for i in range(sections):
            vsize, va, rawsize, raw = struct.unpack_from("<IIII", data, table + i * 40 + 8)
            if va <= rva < va + max(vsize, rawsize):
                return rva - va + raw
        raise ValueError("RVA %#x outside every section" % rva)

    base = offset(rsrc_rva)

    def entries(directory):
        named, numbered = struct.unpack_from("<HH", data, base + directory + 12)
        for i in range(named + numbered):
            ident, target = struct.unpack_from("<II", data, base + directory + 16 + i * 8)
            yield ident, target

    texts = {}
    for type_id, type_dir in entries(0):
        if type_id != 6 or not type_dir & 0x80000000:  # RT_STRING
            continue
        for block, name_dir in entries(type_dir & 0x7FFFFFFF):
            for _, leaf in entries(name_dir & 0x7FFFFFFF):
                rva, size = struct.unpack_from("<II", data, base + leaf)
                pos = offset(rva)
                for index in range(16):
                    length = struct.unpack_from("<H", data, pos)[0]
                    if length:
                        texts[(block - 1) * 16 + index] = data[pos + 2 : pos + 2 + 2 * length].decode("utf-16-le")
                    pos += 2 + 2 * length
    return texts
