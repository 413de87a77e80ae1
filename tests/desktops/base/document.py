# SPDX-License-Identifier: MIT
"""The document: a template around what the last run of each row told."""
import json
import re

from checks import checks
from rows import ROWS, row

from .outcome import FAILED, NOT_APPLICABLE, PASSED

SIGNS = {PASSED: "✓", FAILED: "✗", NOT_APPLICABLE: "–"}


class Document:
    """`docs` is the folder of the documents, `template` the file with the text around."""

    def __init__(self, docs, template):
        self.file = docs / "DESKTOPS.md"
        self.folder = docs / "desktops"
        self.template = template

    def keep(self, name, result):
        """Puts the result of a row in the place of its last one. One that did not come up says
        nothing about the program, so it leaves what an earlier run told."""
        self.folder.mkdir(exist_ok=True)
        picture = result.pop("picture", None)
        if picture:
            (self.folder / f"{name}.jpg").write_bytes(picture)
        text = json.dumps(result, indent=1, ensure_ascii=False) + "\n"
        (self.folder / f"{name}.json").write_text(text, encoding="utf-8")

    def results(self):
        """Of the rows that ever ran, in the order of the rows."""
        found = {}
        for name in ROWS:
            file = self.folder / f"{name}.json"
            if file.exists():
                found[name] = json.loads(file.read_text(encoding="utf-8"))
        return found

    def write(self):
        results = self.results()
        text = self.template.read_text(encoding="utf-8")
        for mark, made in (("RULES", rules()), ("TABLES", tables(results)),
                           ("ROWS", "\n".join(section(name, result, self.folder)
                                              for name, result in results.items()))):
            text = text.replace(f"<!-- {mark} -->\n", made)
        self.file.write_text(text, encoding="utf-8")


def rules():
    return "".join(f"- **{module.TITLE}**: {module.RULE}\n" for _, module in checks())


def tables(results):
    return "\n".join(table(session, [(name, result) for name, result in results.items()
                                     if row(name).session == session])
                     for session in ("X11", "Wayland"))


def table(session, results):
    """One column a check, so that the rows can be compared."""
    if not results:
        return ""
    heads = [module.TITLE for _, module in checks()]
    lines = [f"| {session} | " + " | ".join(heads) + " |", "|---|" + ":-:|" * len(heads)]
    for name, result in results:
        signs = [SIGNS.get(result.get("checks", {}).get(check, [""])[0], " ")
                 for check, _ in checks()]
        lines.append(f"| [{row(name).title}](#{anchor(row(name).title)}) | "
                     + " | ".join(signs) + " |")
    return "\n".join(lines) + "\n"


def anchor(title):
    """As the readers of Markdown make it of a heading."""
    return re.sub(r"[^\w\- ]", "", title.lower()).replace(" ", "-")


def section(name, result, folder):
    lines = [f"### {row(name).title}\n", f"{result.get('versions', '')}.\n"]
    if result.get("missing"):
        return "\n".join([*lines, f"It did not come up: {result['missing']}.\n"])
    if result.get("mechanism"):
        lines.append(f"The program says: {result['mechanism']}\n")
    if (folder / f"{name}.jpg").exists():
        lines.append(f"![{row(name).title}](desktops/{name}.jpg)\n")
    remarks = [f"- {SIGNS[outcome]} {module.TITLE}: {seen}"
               for check, module in checks()
               for outcome, seen in [result["checks"].get(check, ["", ""])] if seen]
    return "\n".join(lines + remarks) + "\n"
