// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "exchange/RowsXml.h"
#include <QString>
#include <vector>

struct Application;

// Names of fields, as they become names of attributes and elements.
namespace exchange {

/// The names of a header row. Blanks become "_"; a field without a name is called "field" and the first
/// number that no name has taken and that makes a word which `headerLine` doesn't hold.
std::vector<QString> NamesOfHeader(const std::vector<QString>& cells, const QString& headerLine);
/// "field1", "field2" and so on.
std::vector<QString> NumberedNames(std::size_t count);

/// The names with what XML doesn't take in them replaced by "_", each of them another one. What XML takes is
/// asked of the parser.
std::vector<QString> ValidNames(Application& app, const std::vector<QString>& names);

/// The first that is no name in XML; null where all are.
QString FirstBadName(Application& app, const std::vector<QString>& names);

/// A sentence on the first name that makes rows which don't parse; empty where all is well.
QString NameComplaint(Application& app, const std::vector<QString>& names, Filling filling);

} // namespace exchange
