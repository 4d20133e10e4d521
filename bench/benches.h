// benches.h: the groups of benchmarks. Each adds its own, in the order of the table.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

void add_blit_benches();
void add_xpm_benches();
void add_mix_benches();
void add_growth_benches();
