#!/usr/bin/env python3
"""start_libraries.py PROGRAM: fails when the program is linked with a library that it is to load
only once something needs it, since every library takes its part of the start."""
import subprocess
import sys

LATER = ["libgio-", "libgobject-", "libsecret-", "libcurl", "libecal-", "libedataserver-",
         "libgweather-", "libssl"]


def main():
    listed = subprocess.run(["readelf", "--dynamic", "--wide", sys.argv[1]], check=True,
                            capture_output=True, text=True).stdout
    linked = [line.split("[")[1].rstrip("]") for line in listed.splitlines() if "(NEEDED)" in line]
    if not linked:
        sys.exit("no library was found in " + sys.argv[1])
    early = [name for name in linked if name.startswith(tuple(LATER))]
    if early:
        sys.exit("linked, and so loaded at the start: " + ", ".join(early))


if __name__ == "__main__":
    main()
