// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include <QString>
#include <QStringList>
#include <vector>

namespace table {

/// What is on the clipboard, as rows of values. Elements give their attributes and their text under their
/// names, escaped; lines with tabs between give values without names; any other text is one value.
struct PastedBlock {
    struct Row {
        QStringList names; ///< empty for values without names
        QStringList values;
    };
    std::vector<Row> rows; ///< none for more than can be pasted
    bool named = false;
    bool isOneValue() const { return rows.size() == 1 && rows.front().values.size() == 1; }
};

/// More cells are not pasted in one go.
inline constexpr std::size_t kMostPastedCells = 5'000'000;

/// Takes a text apart. One that looks like XML but can't be read is one value, unless it has tabs or lines.
PastedBlock BlockOf(const QString& text);
/// Whether it is XML with at least one node in it.
bool IsXml(const QString& text);

} // namespace table
