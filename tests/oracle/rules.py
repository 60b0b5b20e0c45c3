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


def judge(rule, project, git_status, has_repository):
    """What a match in a project scan is told as, None when it is not offered."""
    if git_status == "tracked" or not (rule.may_be_outside if project is None
                                       else not rule.kinds or rule.kinds & project.kinds):
        return None
    evidence, doubts = [], rule.is_common  # one doubt is enough
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
    evidence.append("This is a generic artifact name, so Broomtide requires manual selection." if rule.is_common
                    else "The artifact name and project ecosystem agree.")
    safety = "usuallySafe" if doubts and rule.safety == "safe" else rule.safety
    return {"safety": safety, "evidence": evidence, "regenerationCommand": rule.command,
            "confidence": "medium" if doubts else "high", "isSelected": safety == "safe" and not doubts}
