// devices.h: the mouse and the keys that the scenario plays with. A press lasts to the next frame.
//
// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: The Tavimo developers
#pragma once

void device_mouse(int x, int y, bool down);
void device_key(int key);
void device_release(); // button and keys
