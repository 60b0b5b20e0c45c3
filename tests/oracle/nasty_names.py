"""Names that have broken programs before, and names that only just match a rule or only just do not."""

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
PLAIN_NAMES = [b"src", b"lib", b"app", b"web", b"core", b"packages", b"docs", b"one", b"two", b"three", b"x"]
MANIFEST_FILES = [
    b"package.json", b"deno.json", b"deno.jsonc", b"pnpm-workspace.yaml", b"pyproject.toml", b"requirements.txt",
    b"Pipfile", b"setup.py", b"poetry.lock", b"composer.json", b"Gemfile", b"Cargo.toml", b"go.mod", b"go.work",
    b"pom.xml", b"build.gradle", b"build.gradle.kts", b"settings.gradle", b"settings.gradle.kts", b"Package.swift",
    b"pubspec.yaml", b"mix.exs", b"CMakeLists.txt", b"stack.yaml", b"App.csproj", b"App.fsproj", b"App.vbproj",
    b"App.sln", b"app.cabal", b"main.tf", b".tf", b".csproj", b".cabal", b"\xff.tf", b"a b\n.sln", "ü.cabal".encode(),
]
NOT_MANIFESTS = [
    b"package.json5", b"package.json~", b"package-lock.json", b"Cargo.lock", b"gemfile.lock", b"xpom.xml", b"go.sum",
    b"Package.swift.orig", b"tf", b"main.tf.json", b".terraform.lock.hcl", b"sln", b"requirements-dev.txt",
    b"pac\xe2\x84\xaaage.json", b"Package.re\xc5\xbfolved", b"mix.lock", b"cabal.project",
]
BUNDLES = [b"App.xcodeproj", b"App.xcworkspace", b".xcodeproj", b"App.XcodeProj", b"Appxcodeproj", b"\xe9.xcworkspace"]
PROTECTED = [
    b".env", b".ENV", b".env.local", b".env.log", b"x.env", b"env", b"server.pem", b"id.KEY", b"data.SQLite",
    b"yarn.lock", b"Composer.Lock", b"model.gguf", b".pem", b"..db", b"key", b"x.log.key", b"net.h5",
]
LOGS = [
    b"debug.log", b"Debug.LOG", b".log", b"..log", b"a.b.LoG", b"log", b"x.log.1", b"x.log ", b"x.logs", b"-.log",
    b"\xff.log", b"new\nline.log", "ü.log".encode(), b"L" * 251 + b".log", b"a.lo\xc2\xadg", b".env.local.log",
]
IGNORE_LINES = [
    b"build/", b"*.log", b"!keep.log", b"!Debug.LOG", b"/dist", b"/out/", b"*", b"!.gitignore", b"!*/", b"node_modules",
    b"**/target", b"tmp/*", b"!tmp/keep", b"*.LOG", b"# comment", b"", b"obj/", b".next/", b".cache", b"logs/**", b"*/",
    b"a b/", b"\\#hash", b"caf\xe9/", b"src/", b"/src/build", b"[Bb]in", b"vendor/*/", b".DS_Store", b"trail\\ ",
    b"only-empty/", b"*/.venv", b"nested*/", b"__pycache__/\r",
]
DOWNLOADS = [
    b"Setup.dmg", b"Setup.DMG", b".dmg", b"..dmg", b"x.dmg.part", b"a.b.dmg", b"tool.pkg", b"tool.PkG",
    b"tool.p\xe2\x84\xaag", b"a.zip", b"a.ZIP", b"a.zip.pdf", b"a.pdf.zip", b"a.zip ", b"x.tar.gz", b"x.TAR.GZ",
    b".tar.gz", b"tar.gz", b"xtar.gz", b"x.tgz", b"x.tar.gz.zip", b"a.rar", b"a.RAR", b"rar", b"Screenshot 1.png",
    b"Screenshot 1.PNG", b"Screenshot .png", b"Screenshot.png", b"Screenshots.png", b"screenshot 1.png",
    b"Screenshot 1.pdf", b"Screenshot  2.png", b" Screenshot 3.png", b"Screenshot\xc2\xa04.png", b"Screenshot \xff.png",
    b"Screenshot 1.mov", b"Screen Recording 1.mov", b"Screen Recording 1.MOV", b"Screen Recording .mov",
    b"Screen recording 1.mov", b"Screen Recording1.mov", b"Screen Recording 1.png", b"a.csv", b"A.CSV", b".csv",
    b"..csv", b"a.csv.", b"a.csv ", b"a.xlsx", b"A.XlsX", b"a.xls", b"a.pdf", b"a.PDF", b"new\nline.pdf",
    b"\xff.pdf", "ü.zip".encode(), b"100%.csv", b"P" * 251 + b".pdf", b"a.pdf\xcc\x81",
]
ROOT_NAMES = [
    b"work", b"Projects", b"build", b"node_modules", b"repository", b"caches", b"-dash", b"100% done",
    b"line\nbreak", b"caf\xe9", "Проекты".encode(), b" ", b"a;b&c", b"x.xcodeproj",
]
