// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/TreeView.h"
#include "platform/xml/ParsedDocument.h"
#include "schema/infer/ElementFacts.h"
#include <functional>

namespace schema {

/// Told now and then; false stops.
using CollectStep = std::function<bool()>;

/// Takes a document from its tree, or as it was parsed. False when `step` stopped it, or there are more
/// different names than can be taken (`facts.tooMany`).
bool CollectTree(const controls::TreeView& tree, DocumentFacts& facts, const CollectStep& step);
bool CollectParsed(const xml::ParsedDocument& document, DocumentFacts& facts, const CollectStep& step);

} // namespace schema
