"""Names that have broken programs before."""

ODD_NAMES = [
    b"a", b"a-b", b"a b", b"a.b", b"a0", b"A", b"aa", b"a\x01", b"a!", b"a~",
    b" lead", b"trail ", b" ", b"line\nbreak", b"tab\there", b"\x1b[31mred\x1b[0m", b"bell\x07", b"\x7f",
    b"quote\"d", b"it's", b"back\\slash", b"100%", b"%41%2F", b"#hash", b"semi;colon", b"q?", b"*", b"[x]", b"{}",
    b"-dash", b"--", b"~", b"...", b"a.", b"\xe2\x80\xae rtl", b"\xef\xbb\xbfbom", b"\xf0\x9f\xa7\xb9",
    "café".encode(), "cafe\u0301".encode(), "Ångström".encode(), "ﬁ".encode(), "日本語".encode(), "ı".encode(),
    b"\xff", b"\xff\xfe", b"x\x80y", b"\xe2\x82", b"\xe2\x82z", b"\xf0\x9f\x98", b"\xed\xa0\x80", b"\xc0\xaf",
    b"\xf4\x90\x80\x80", b"\xc3(", b"caf\xe9", b"N" * 255, "é".encode() * 127,
]
# What a terminal would act on, what forges a line, a column or a field, and what nobody sees.
DECEIVING_NAMES = [
    "a\nSafe to Clean · 9 items".encode(), b"b\r  1.2 GB", b"\x1b]0;title\x07", b"\x1b[2J\x1b[H", b"\x08\x08\x08",
    b"\x7f", b"\xc2\x9b31m", b"\xc2\x85", b"\x9b31m", "photo\u202egpj.exe".encode(), "\u2066a\u2069".encode(),
    "\u200e\u200f\u061c".encode(), "line\u2028paragraph\u2029".encode(), "a\u200bb\u2060\ufeff".encode(),
    "\u3164\u2800\U000e0041".encode(), b"quote\",\"safety\":\"safe", b"\\u0022,\\n", b"%s%n", b"$(x)`x`",
    "אבג".encode(), "دهل 123".encode(), b"\xe2\x80", b"\xed\xa0\x80",
]
# What may stand where a rule has a star.
STEMS = [b"x", b"", b".", b"1", b"a.b", b"keep", b"-", b".env", b"100%", b"\xff", b"new\nline", "ü".encode(), b"L" * 230]
IGNORE_LINES = [
    b"build/", b"*.log", b"!keep.log", b"!*.LOG", b"/dist", b"/out/", b"*", b"!.gitignore", b"!*/", b"node_modules",
    b"**/target", b"tmp/*", b"!tmp/keep", b"# comment", b"", b"obj/", b".next/", b".cache", b"logs/**", b"*/", b"a b/",
    b"\\#hash", b"caf\xe9/", b"src/", b"/src/build", b"[Bb]in", b"vendor/*/", b"trail\\ ", b"*/.venv", b"*/\r",
]


def near(name):
    """What only looks like the name, at least in capitals."""
    return [name.upper(), name.swapcase(), name.capitalize(), name + b" ", name + b"~", name + b".x", b"x" + name,
            b"." + name, name.replace(b".", b""), name.replace(b".", b"\xc2\xad."), name.replace(b"k", b"\xe2\x84\xaa")]
