# SPDX-License-Identifier: MIT
"""What shows a desktop: how it is looked at, clicked on and changed."""
