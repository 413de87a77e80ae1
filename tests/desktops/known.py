# SPDX-License-Identifier: MIT
"""What is known not to hold, by row and check, and what is seen then (a `Known` of base.verdict):
told in the document like every other failure, but no reason for --quick to fail. An entry goes as
soon as its cause is mended."""

KNOWN = {}
