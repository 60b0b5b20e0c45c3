"""The rule tables, read from tables/*.tsv, and the judgements that need no file system."""

import csv
import os
import re
from dataclasses import dataclass

TABLES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "tables")


def read_table(name):
    with open(os.path.join(TABLES, name), encoding="utf-8", newline="") as file:
        return list(csv.DictReader(file, delimiter="\t"))


@dataclass(frozen=True)
class Rule:
    id: str
    matcher: str
    prefix: str
    text: str
    kind: str
    category: str
    safety: str
    selection: str
    minimum_age: float | None
    explanation: str


@dataclass(frozen=True)
class Policy:
    kinds: frozenset
    allows_without_project: bool
    is_generic_name: bool
    regeneration_command: str | None


@dataclass(frozen=True)
class CacheTarget:
    id: str
    relative_path: str
    category: str
    safety: str
    expands_children: bool
    explanation: str
    regeneration_command: str | None


def _boolean(text):
    return {"true": True, "false": False}[text]


def _rules(name):
    return [
        Rule(
            id=row["id"],
            matcher=row["matcher"],
            prefix=row.get("prefix", ""),
            text=row["text"],
            kind=row.get("kind", "file"),
            category=row["category"],
            safety=row["safety"],
            selection=row["selection"],
            minimum_age=float(row["minimumAge"]) if row.get("minimumAge") else None,
            explanation=row["explanation"],
        )
        for row in read_table(name)
    ]


def _policies():
    policies = {}
    for row in read_table("policies.tsv"):
        policy = Policy(
            kinds=frozenset(row["kinds"].split()),
            allows_without_project=_boolean(row["allowsWithoutProject"]),
            is_generic_name=_boolean(row["isGenericName"]),
            regeneration_command=row["regenerationCommand"] or None,
        )
        for rule_id in row["rules"].split():
            assert rule_id not in policies, f"{rule_id} has two policies"
            policies[rule_id] = policy
    return policies


def _cache_targets(table):
    return [
        CacheTarget(
            id=row["id"],
            relative_path=row["relativePath"],
            category=row["category"],
            safety=row["safety"],
            expands_children=_boolean(row["expandsChildren"]),
            explanation=row["explanation"],
            regeneration_command=row["regenerationCommand"] or None,
        )
        for row in read_table(table)
    ]


def _names(which):
    return frozenset(row["name"].encode() for row in read_table("names.tsv") if row["set"] == which)


PROJECT_RULES = _rules("project_rules.tsv")
DOWNLOADS_RULES = _rules("downloads_rules.tsv")
POLICIES = _policies()
USUAL_CACHE_TARGETS = _cache_targets("cache_targets.tsv")
CACHE_TARGETS = USUAL_CACHE_TARGETS + _cache_targets("linux_cache_targets.tsv")
KIND_TITLES = {row["kind"]: row["title"] for row in read_table("kinds.tsv")}
MANIFESTS = [(row["match"], row["text"].encode(), row["kind"]) for row in read_table("manifests.tsv")]
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
            if rule.minimum_age is None or age_seconds() >= rule.minimum_age:
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
    lower = name.lower()
    for how, text, kind in MANIFESTS:
        if how == "exact" and lower == text:
            return kind
    for how, text, kind in MANIFESTS:
        if how == "suffix" and lower.endswith(text):
            return kind
    return None


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
