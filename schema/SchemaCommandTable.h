// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Command.h"
#include <span>

namespace schema {

/// The commands of schemas, for the frame.
std::span<const edit::Command> SchemaCommands();

/// What commands of other rooms do in the compact view.
std::span<const edit::CommandForm> SchemaForms();

/// Tells the conditions of these commands about a schema window.
void DescribeTarget(DocumentWindow& window, const controls::TreeNode& node, edit::Target& target);

} // namespace schema
