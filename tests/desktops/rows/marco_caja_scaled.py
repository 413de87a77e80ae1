# SPDX-License-Identifier: MIT
from rows import marco_caja


class Row(marco_caja.Row):
    name = "marco_caja_scaled"
    title = "MATE at scale 2: marco + caja"
    scale = 2
