"""The rule tables, read from tables/*.tsv, and the judgements that need no file system."""

import csv
import os
import re
from dataclasses import dataclass
from types import SimpleNamespace

TABLES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "tables")


VALUES = {"true": True, "false": False, "": None}


def read_table(name, **missing):
    """Each row of a table with its columns as attributes; `missing` are columns that the table has not got."""
    with open(os.path.join(TABLES, name), encoding="utf-8", newline="") as file:
        return [SimpleNamespace(**missing, **{column: VALUES.get(text, text) for column, text in row.items()})
                for row in csv.DictReader(file, delimiter="\t")]


def _policies():
    policies = {}
    for policy in read_table("policies.tsv"):
        policy.kinds = frozenset((policy.kinds or "").split())
        for rule_id in policy.rules.split():
            assert rule_id not in policies, f"{rule_id} has two policies"
            policies[rule_id] = policy
    return policies


def _names(which):
    return frozenset(row.name.encode() for row in read_table("names.tsv") if row.set == which)


PROJECT_RULES = read_table("project_rules.tsv", minimum_age=None)
DOWNLOADS_RULES = read_table("downloads_rules.tsv", kind="file")
POLICIES = _policies()
USUAL_CACHE_TARGETS = read_table("cache_targets.tsv")
CACHE_TARGETS = USUAL_CACHE_TARGETS + read_table("linux_cache_targets.tsv")
KIND_TITLES = {row.kind: row.title for row in read_table("kinds.tsv")}
MANIFESTS = [(row.match, row.text.encode(), row.kind) for row in read_table("manifests.tsv")]
SENSITIVE_DIRECTORIES = _names("sensitiveDirectory")
PROTECTED_NAMES = _names("protectedName")
PROTECTED_EXTENSIONS = _names("protectedExtension")
ARTEFACT_DIRECTORIES = frozenset(
    rule.text.encode() for rule in PROJECT_RULES if rule.kind == "directory" and rule.matcher == "exactName"
)


def path_extension(name):
    """The bytes after the last dot, or None when there is no dot or the only one leads the name."""
    stem, dot, extension = name.rpartition(b".")
    return extension if dot and stem else None


def name_matches(rule, name):
    """Whether the rule's matcher accepts the name; bytes.lower() folds ASCII letters only."""
    text = rule.text.encode()
    extension = path_extension(name)
    has_extension = extension is not None and extension.lower() == text.lower()
    if rule.matcher == "exactName":
        return name == text
    if rule.matcher == "fileExtension":
        return has_extension
    if rule.matcher == "compoundExtension":
        return name.lower().endswith(b"." + text.lower())
    if rule.matcher == "prefixedFile":
        return name.startswith(rule.prefix.encode()) and has_extension
    raise AssertionError(rule.matcher)


def match(name, kind, mode, age_seconds):
    """The first rule that accepts the entry. age_seconds is called only when a rule asks for an age."""
    for rule in PROJECT_RULES if mode == "project" else DOWNLOADS_RULES:
        if rule.kind == kind and name_matches(rule, name):
            if rule.minimum_age is None or age_seconds() >= float(rule.minimum_age):
                return rule
    return None


def is_trash_of_mount(name):
    return re.fullmatch(rb"\.Trash(-[0-9]+)?", name) is not None


def is_protected_file(name):
    lower = name.lower()
    return (
        lower == b".env"
        or lower.startswith(b".env.")
        or lower in PROTECTED_NAMES
        or path_extension(lower) in PROTECTED_EXTENSIONS
    )


def manifest_kind(name):
    """A whole name says more than the end of one."""
    lower = name.lower()
    fitting = {how: kind for how, text, kind in MANIFESTS
               if (lower == text if how == "exact" else lower.endswith(text))}
    return fitting.get("exact", fitting.get("suffix"))


def in_declaration_order(kinds):
    return [kind for kind in KIND_TITLES if kind in kinds]


@dataclass
class Evaluation:
    safety: str
    confidence: str
    is_selected: bool
    evidence: list
    regeneration_command: str | None


def evaluate(rule, project, git_status, has_repository):
    """Judges a match in a project scan; project has .kinds and .manifests (bytes). None refuses it."""
    policy = POLICIES[rule.id]
    if git_status == "tracked":
        return None
    if project is not None and policy.kinds and not policy.kinds & project.kinds:
        return None
    if project is None and not policy.allows_without_project:
        return None

    doubtful = False  # one reason is enough: safe becomes usuallySafe, and the confidence medium
    unsure = False  # only the confidence becomes medium
    evidence = []
    if project is None:
        evidence.append("Recognized artifact signature, but no supported project manifest was found nearby.")
        doubtful = True
    else:
        titles = ", ".join(sorted(KIND_TITLES[kind] for kind in project.kinds))
        manifests = b", ".join(project.manifests).decode("utf-8", "replace")
        evidence.append(f"Detected {titles} project from {manifests}.")
        unsure = policy.is_generic_name

    if git_status == "ignored":
        evidence.append("The path is ignored by Git.")
    elif git_status == "untracked":
        evidence.append("The path is untracked, but not explicitly ignored by Git.")
        doubtful = True
    elif has_repository:
        evidence.append("Git status could not be verified.")
        doubtful = True
    else:
        evidence.append("No Git repository was detected for this project.")

    if policy.is_generic_name:
        evidence.append("This is a generic artifact name, so Broomtide requires manual selection.")
        doubtful = True
    else:
        evidence.append("The artifact name and project ecosystem agree.")

    safety = "usuallySafe" if doubtful and rule.safety == "safe" else rule.safety
    confidence = "medium" if doubtful or unsure else "high"
    return Evaluation(
        safety=safety,
        confidence=confidence,
        is_selected=safety == "safe"
        and confidence == "high"
        and (git_status == "ignored" or not has_repository),
        evidence=evidence,
        regeneration_command=policy.regeneration_command,
    )
