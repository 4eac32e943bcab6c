// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QStringList>
#include <vector>

// Where faults stand: a check tells the place behind the tag that a fault is about.
namespace schema {

/// 0-based; the end of the text for a line that it doesn't have. Line and column count from 1.
qsizetype PositionOf(const text::LongText& text, int line, int column);

/// The keys of the elements that places of the document's text are about; one behind an end tag is about the
/// element that ends there. Empty without one, and for all of them where the tree isn't that of the text.
/// `positions` ascend; one walk through text and tree does for all.
QStringList ElementsAt(const DocumentWindow& window, const std::vector<qsizetype>& positions);

/// Where an element stands in the document's text as it is now, though the tree may be behind that.
qsizetype PositionOf(DocumentWindow& window, controls::TreeNode element);

} // namespace schema
