# SPDX-License-Identifier: MIT
"""What was installed when a row ran."""
import subprocess


def versions(packages):
    """Names and upstream versions, as the packages tell."""
    done = subprocess.run(["dpkg-query", "-W", "-f", "${Package} ${Version}\n", *packages],
                          capture_output=True, text=True, check=False)
    return ", ".join(shortened(line) for line in done.stdout.splitlines())


def shortened(line):
    """Without the epoch and what the distribution added."""
    package, _, version = line.partition(" ")
    return f"{package} {version.partition(':')[2] or version}".partition("+deb")[0]
