"""Message texts of CorvaneRes.dll, read from its resource script.

The cases never copy a message text: they ask for it by id (msg(5108)), so a
reworded message changes no test. The script is parsed as the resource
compiler reads it; strings_in_dll() reads the built library back so that the
harness can check that both agree.
"""

import re
import struct
from pathlib import Path

_ESCAPES = {"n": "\n", "t": "\t", "r": "\r", "a": "\a", "b": "\b", "f": "\f", "v": "\v", "\\": "\\", '"': '"', "'": "'"}


def _strip_comments(text):
    out, i, n = [], 0, len(text)
    while i < n:
        if text.startswith("//", i):
            j = text.find("\n", i)
            i = n if j < 0 else j
        elif text.startswith("/*", i):
            j = text.find("*/", i + 2)
            i = n if j < 0 else j + 2
        elif text[i] == '"':
            j = i + 1
            while j < n and text[j] != '"' and text[j] != "\n":
                j += 2 if text[j] == "\\" else 1
            out.append(text[i : j + 1])
            i = j + 1
        else:
            out.append(text[i])
            i += 1
    return "".join(out)


def _unescape(body, wide):
    out, i = [], 0
    while i < len(body):
        c = body[i]
        if c == '"' and body[i + 1 : i + 2] == '"':  # "" inside a literal is a quote
            out.append('"')
            i += 2
        elif c == "\\" and i + 1 < len(body):
            e = body[i + 1]
            if e in _ESCAPES:
                out.append(_ESCAPES[e])
                i += 2
            elif e in "xX":
                m = re.match(r"[0-9a-fA-F]{1,4}" if wide else r"[0-9a-fA-F]{1,2}", body[i + 2 :])
                out.append(chr(int(m.group(0), 16)) if m else "x")
                i += 2 + (len(m.group(0)) if m else 0)
            elif e in "01234567":
                m = re.match(r"[0-7]{1,3}", body[i + 1 :])
                out.append(chr(int(m.group(0), 8)))
                i += 1 + len(m.group(0))
            else:
                out.append("\\" + e)
                i += 2
        else:
            out.append(c)
            i += 1
    return "".join(out)


# One literal: an opening quote, then anything but a lone quote ("" is a quote).
_LITERAL = r'(?:L?"(?:[^"\n]|"")*")'
_ENTRY = re.compile(
    r"\s*(?P<id>[A-Za-z_][A-Za-z0-9_]*|0[xX][0-9a-fA-F]+|\d+)\s*,?\s*"
    r"(?P<strings>" + _LITERAL + r"(?:\s*" + _LITERAL + r")*)"
)


def _defines(header):
    values = {}
    for line in header.read_text(encoding="utf-8").splitlines():
        m = re.match(r"\s*#\s*define\s+([A-Za-z_]\w*)\s+(.+?)\s*(//.*)?$", line)
        if m:
            values[m.group(1)] = m.group(2)
    for name in list(values):
        values[name] = _evaluate(values[name], values)
    return values


def _evaluate(expression, names):
    if isinstance(expression, int):
        return expression
    text = re.sub(r"\b([A-Za-z_]\w*)\b", lambda m: str(_evaluate(names[m.group(1)], names)), expression)
    if not re.fullmatch(r"[0-9a-fA-FxX+\-*()\s|]+", text):
        raise ValueError("cannot evaluate message id %r" % expression)
    return int(eval(text, {"__builtins__": {}}))  # digits and operators only, checked above


def parse_rc(rc_path):
    """Returns {message id: text} for every STRINGTABLE entry of the script."""
    rc_path = Path(rc_path)
    source = rc_path.read_text(encoding="utf-8-sig")
    names = {}
    for inc in re.findall(r'#\s*include\s+"([^"]+)"', source):
        names.update(_defines(rc_path.parent / inc))
    body = _strip_comments(source)
    texts = {}
    for table in re.finditer(r"\bSTRINGTABLE\b.*?\b(?:BEGIN|\{)(.*?)\b(?:END|\})", body, re.S):
        for entry in _ENTRY.finditer(table.group(1)):
            key = entry.group("id")
            ident = int(key, 0) if key[0].isdigit() else names[key]
            pieces = re.findall(_LITERAL, entry.group("strings"))
            texts[ident] = "".join(_unescape(p[p.index('"') + 1 : -1], p[0] == "L") for p in pieces)
    return texts


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
