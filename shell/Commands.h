// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class frmMDIMain;

/// Connects the menu entries and toolbar buttons whose command is built to their routines and marks them so;
/// a fault that gets out of one is reported under the handler's name.
void ConnectCommands(frmMDIMain& frame);
