// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Command.h"
#include <span>

namespace schema {

/// The commands that make documents from schemas and schemas from documents, for the frame.
std::span<const edit::Command> MakeCommands();

} // namespace schema
