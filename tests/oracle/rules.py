"""The rules as docs/rules.md tells them to people, and the judgements that need no file system."""

import re
from dataclasses import dataclass
from pathlib import Path

DOCUMENT = (Path(__file__).resolve().parents[2] / "docs/rules.md").read_text()
SAFETIES = {"Safe to Clean": "safe", "Usually Safe": "usuallySafe", "Review First": "reviewFirst"}
DAY = 86_400 * 10**9  # nanoseconds


@dataclass
class Rule:
    """A row of a table; what its table has no column for stays as it is here."""

    pattern: bytes
    explanation: str
    category: str
    safety: str
    is_folder: bool = False
    is_in_parts: bool = False
    is_common: bool = False
    kinds: frozenset = frozenset()  # of projects; empty when any will do
    may_be_outside: bool = False
    command: str | None = None
    days: int = 0
    proof: str = ""  # that it is a build tree or a cache, as it is told

    def accepts(self, name, is_folder):
        start, star, extension = self.pattern.partition(b"*.")
        if is_folder != self.is_folder or not star:
            return is_folder == self.is_folder and name == self.pattern
        if b"." in extension:
            return name.lower().endswith(b"." + extension)
        return name.startswith(start) and extension_of(name) == extension


def rows(heading):
    """The cells of the table below a heading."""
    text = re.search(rf"\n##+ {re.escape(heading)}\n(.*?)(?=\n##|\Z)", DOCUMENT, re.S)[1]
    return [line[2:-2].split(" | ") for line in text.splitlines() if line.startswith("| ")][1:]


def quoted(text):
    return [name.encode() for name in re.findall(r"`([^`]+)`", text)]


def list_after(sentence):
    """The names in the list that follows."""
    return frozenset(quoted(DOCUMENT.partition(sentence)[2].split("\n\n")[1]))


def rule(name, explanation, category, safety, **more):
    pattern, *mark = quoted(name)
    command = more.pop("command", "nothing to do")
    return Rule(pattern.removesuffix(b"/").removeprefix(b"~/"), explanation, category, SAFETIES[safety],
                is_folder=pattern.endswith(b"/"), is_in_parts=name.endswith(" in parts"), is_common=bool(mark),
                command=None if command == "nothing to do" else command, **more)


def project_rule(name, explanation, category, places, safety, command):
    places = set(places.split(", "))
    return rule(name, explanation, category, safety, command=command, may_be_outside="or outside" in places,
                kinds=frozenset(KINDS[place] for place in places - {"any project", "or outside"}))


# What documents call each kind of project, by its title and in the order in which they are told.
KINDS = dict(zip([title for title, _ in rows("What makes a project")],
                 "javascript python php ruby rust go java dotnet swift flutter elixir terraform cmake haskell".split()))
TITLES = {kind: title for title, kind in KINDS.items()}
PROJECT_RULES = [project_rule(*row) for row in rows("In a folder of projects")]
DOWNLOADS_RULES = [rule(*row[:4], days=int(re.match(r"\d*", row[4])[0] or 0)) for row in rows("In Downloads")]
CACHES = [rule(*row[:4], command=row[4])
          for heading in ("Everywhere, and where macOS keeps them", "Where Linux keeps them") for row in rows(heading)]
MANIFESTS = {name: KINDS[title] for title, names in rows("What makes a project") for name in quoted(names)}
SENSITIVE = list_after("Folders with these names are never entered")
PROTECTED = list_after("Files with these names are never offered")
PROTECTED_ENDINGS = list_after("Nor are files with these extensions")
ARTEFACT_FOLDERS = {rule.pattern for rule in PROJECT_RULES if rule.is_folder}
CMAKE, MESON, CARGO, TAG = [Rule(b"", *row[1:3], SAFETIES[row[3]], may_be_outside="in a project" not in row[0])
                            for row in rows("Whole build trees, by what is in them")]
MARKS = {name.encode(): title for name, title in re.findall(r"`(\S+)` \((\w+)\)", DOCUMENT)}  # of version control
STORES = frozenset(name for name, title in MARKS.items() if title != "Fossil")
REPEATED = frozenset(quoted(re.search(r"Folders called (.*?) count only", DOCUMENT, re.S)[1]))  # by tools, from sources
SOURCES = re.search(r"- in (.*): files that people write, with the extensions (.*);", DOCUMENT)
SOURCE_PLACES, SOURCE_ENDINGS = [frozenset(quoted(names)) for names in SOURCES.groups()]
EXCEPTIONS = {quoted(place)[0]: what for place, what in rows("What is in a folder counts as well")}
INSTALLED = {place: re.compile(b"(/|/.*/)" + re.escape(place.strip(b"~/")).replace(rb"\*", b"[^/]*"), re.S)
             for place in sorted(list_after("`~/` stands for the home of a user."))}
INSIDE_INSTALLED = "It lies in a place where programs are installed: {}"
INSIDE_HIDDEN = "It lies in a hidden folder of a home, where programs keep what they need: {}"
CAUTIONS = ["working copy, and Broomtide can only", "where programs are installed: ", "hidden folder of a home, "]
NOT_ALL_READ = "Not all of it could be read: {}"
SIGNS = [REPOSITORY, PROTECTED_FILE, GUARDED_FOLDER, SOURCE, OWN_MANIFEST] = [
    "It holds a {} repository of its own: {}", "It holds a file that may be of value: {}",
    "It holds a folder that may be of value: {}", "It holds a file that people write: {}",
    "It is a project of its own: {}"]


def extension_of(name):
    """In small ASCII letters what follows the last dot; None without one, or when it leads the name."""
    stem, _, extension = name.rpartition(b".")
    return extension.lower() if stem else None


def match(name, is_folder, mode, age):
    """The first rule that accepts; the age is asked for only when a rule needs it."""
    for rule in PROJECT_RULES if mode == "project" else DOWNLOADS_RULES:
        if rule.accepts(name, is_folder) and (not rule.days or age() >= rule.days * DAY):
            return rule
    return None


def is_protected(name):
    lower = name.lower()
    return (lower in PROTECTED or lower.startswith(b".env.")
            or b"." + (extension_of(lower) or b"") in PROTECTED_ENDINGS)


def manifest_kind(name, is_folder):
    """A whole name says more than the end of one."""
    if is_folder:
        return next((kind for end, kind in MANIFESTS.items() if end.endswith(b"/") and name.endswith(end[1:-1])), None)
    ends = [kind for end, kind in MANIFESTS.items() if end.startswith(b"*") and name.lower().endswith(end[1:])]
    return MANIFESTS.get(name.lower()) or next(iter(ends), None)


def text(path):
    return path.decode("utf-8", "replace")


def for_shell(path):
    return path if re.fullmatch(rb"(?!~)[\w.~/+=:,@%-]+", path) else b"'" + path.replace(b"'", rb"'\''") + b"'"


def is_installed(place, is_home):
    """Whether a folder, a real one, is where programs are installed."""
    found = [(name[:1], pattern.fullmatch(place)) for name, pattern in INSTALLED.items()]
    return any(match and (match[1] == b"/" or start != b"/") and (start != b"~" or is_home(match[1][:-1]))
               for start, match in found)


def working_copies(folder, kinds):
    return [f"It lies in a {MARKS[name]} working copy, and Broomtide can only ask Git: {text(folder)}"
            for name in kinds if name in MARKS and name != b".git" and not (name == b".jj" and b".git" in kinds)]


def sign_of(rule, path, kind):
    """What an entry of an item says against it."""
    folder, name = path.rpartition(b"/")[::2]
    if name in MARKS:
        return REPOSITORY
    if kind == "other" or rule.safety != "safe" or rule.is_common or rule in CACHES:
        return None
    excepted = EXCEPTIONS.get(rule.pattern + b"/", "")
    if kind == "directory":
        is_repeated = name in REPEATED and (folder or "folders" in excepted)
        return GUARDED_FOLDER if name in SENSITIVE and not is_repeated else None
    if not folder and manifest_kind(name, False) and "manifest" not in excepted:
        return OWN_MANIFEST
    ending = b"." + (extension_of(name) or b"")
    if ending in quoted(excepted):
        return None
    is_source = rule.pattern + b"/" in SOURCE_PLACES and ending in SOURCE_ENDINGS
    return PROTECTED_FILE if is_protected(name) else SOURCE if is_source else None


def signs(rule, item, entries):
    """What speaks against an item, by the paths and kinds of its entries."""
    found, folders = {}, {path for path, kind in entries if kind == "directory"}
    has_stores = rule.safety != "safe" or rule.is_common or rule in CACHES or rule.pattern == b".build"
    for path, kind in entries:
        place = path.removesuffix(b"HEAD")
        is_store = place + b"HEAD" == path and (not place or place.endswith(b"/")) and kind != "directory" and (
            folders >= {place + b"objects", place + b"refs"})
        sign = REPOSITORY if is_store and not has_stores else sign_of(rule, path, kind)
        found.setdefault(sign, item + b"/" + path)
    lines = [sign.format(text(found[sign])) for sign in SIGNS[1:] if sign in found]
    if REPOSITORY in found:
        folder, _, name = found[REPOSITORY].rpartition(b"/")
        lines.insert(0, REPOSITORY.format(MARKS.get(name, "Git"), text(folder)))
    return lines + ["It has no pyvenv.cfg, so it may not be a Python environment."] * (
        rule.pattern.endswith(b"venv") and (b"pyvenv.cfg", "file") not in entries)


def cautioned(judgement, reasons):
    """What a judgement becomes when something speaks against the item."""
    return judgement if not reasons else {
        **judgement, "safety": "usuallySafe" if judgement["safety"] == "safe" else judgement["safety"],
        "evidence": judgement["evidence"] + reasons, "confidence": "medium", "isSelected": False}


def fits(rule, project):
    return rule.may_be_outside if project is None else not rule.kinds or bool(rule.kinds & project.kinds)


def judge(rule, project, git_status, has_repository):
    """What a match in a project scan is told as, None when it is not offered."""
    if git_status == "tracked" or not fits(rule, project):
        return None
    evidence, doubts = [], rule.is_common or bool(rule.proof)  # one doubt is enough
    if project is None:
        evidence.append("Recognized artifact signature, but no supported project manifest was found nearby.")
        doubts = True
    else:
        titles = ", ".join(sorted(TITLES[kind] for kind in project.kinds))
        manifests = b", ".join(project.manifests).decode("utf-8", "replace")
        evidence.append(f"Detected {titles} project from {manifests}.")
    if git_status == "ignored":
        evidence.append("The path is ignored by Git.")
    elif git_status == "untracked":
        evidence.append("The path is untracked, but not explicitly ignored by Git.")
        doubts = True
    elif has_repository:
        evidence.append("Git status could not be verified.")
        doubts = True
    else:
        evidence.append("No Git repository was detected for this project.")
    evidence.append(rule.proof or "This is a generic artifact name, so Broomtide requires manual selection."
                    if rule.proof or rule.is_common else "The artifact name and project ecosystem agree.")
    safety = "usuallySafe" if doubts and rule.safety == "safe" else rule.safety
    return {"safety": safety, "evidence": evidence, "regenerationCommand": rule.command,
            "confidence": "medium" if doubts else "high", "isSelected": safety == "safe" and not doubts}
