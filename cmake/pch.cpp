// SPDX-License-Identifier: GPL-3.0-or-later
// Nothing but the reason to compile pch.h.
