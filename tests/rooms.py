#!/usr/bin/env python3
"""rooms.py SRC: fails when an include of the sources goes up, or when folders include in a circle.

The rooms stand below from the lowest to the highest; what stands higher may use what stands lower.
An adapter uses the ports and what they speak of, and app/ alone knows adapters.
"""
import collections
import os
import re
import sys

ORDER = ["base", "model", "ports", "settings", "wording", "history", "services", "sensing",
         "drawing", "widgets", "host", "ui", "app"]
ADAPTERS_MAY_USE = {"adapters", "base", "model", "ports"}


def includes(source):
    with open(source, encoding="utf-8") as text:
        return re.findall(r'^#include "([^"]+)"', text.read(), re.MULTILINE)


def goes_up(user, used):
    if user == "adapters":
        return used not in ADAPTERS_MAY_USE
    if used == "adapters":
        return user != "app"
    return ORDER.index(used) > ORDER.index(user)


def circle(uses):
    """A path of folders that ends where it began, or nothing."""
    done = set()

    def walk(folder, path):
        if folder in path:
            return path[path.index(folder):] + [folder]
        if folder in done:
            return None
        for used in sorted(uses[folder]):
            found = walk(used, path + [folder])
            if found:
                return found
        done.add(folder)
        return None

    for folder in sorted(uses):
        found = walk(folder, [])
        if found:
            return found
    return None


def main():
    root = sys.argv[1]
    uses = collections.defaultdict(set)
    faults = []
    sources = 0
    for folder, _, names in os.walk(root):
        here = os.path.relpath(folder, root)
        for name in names:
            if not name.endswith((".h", ".cpp")):
                continue
            sources += 1
            for include in includes(os.path.join(folder, name)):
                there = os.path.dirname(include) or here
                if not os.path.exists(os.path.join(root, there)):
                    continue
                if goes_up(here.split("/")[0], there.split("/")[0]):
                    faults.append(f"{here}/{name} includes {include}, which stands higher")
                if there != here:
                    uses[here].add(there)
    found = circle(uses)
    if found:
        faults.append("a circle: " + " -> ".join(found))
    if sources == 0:
        faults.append(f"there are no sources in {root}")
    print("\n".join(faults) or f"{sources} sources, no include goes up")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
