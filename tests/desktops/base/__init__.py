# SPDX-License-Identifier: MIT
"""What every desktop needs: a room of its own, processes that end, pictures, the program."""
