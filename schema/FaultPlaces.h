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

/// Whether the tree is that of the text: what was typed may have been taken back without the text's being
/// left.
bool IsTreeOfText(const DocumentWindow& window);

/// The numbers of elements by their keys, 0 for what isn't there, and the other way round: empty for a number
/// that is no element's. One walk through the tree does for all.
std::vector<long> NumbersOf(const DocumentWindow& window, const QStringList& keys);
QStringList KeysOf(const DocumentWindow& window, const std::vector<long>& numbers);

/// Where the markup at the start of a text ends: a tag, a comment, a section, an instruction.
qsizetype MarkupEnd(const QString& text);

/// Where an element stands in the document's text as it is now, though the tree may be behind that.
qsizetype PositionOf(DocumentWindow& window, controls::TreeNode element);

} // namespace schema
