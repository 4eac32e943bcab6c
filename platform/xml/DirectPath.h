// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/xml/DocumentStore.h"
#include <QStringView>
#include <cstdint>
#include <optional>
#include <vector>

namespace xml {

/// Evaluates the paths that name a node step by step, such as /list[1]/p:item[12]/text()[2], on the document
/// itself: each step a name, *, text() or comment(), with at most one position behind it. They are asked for
/// after each change of a text, so they must not cost the engine's tree. Numbers of nodes in document order,
/// or nothing for any other path: that one is for the engine.
std::optional<std::vector<std::uint32_t>> SelectDirectly(const DocumentStore& store, QStringView path);

} // namespace xml
