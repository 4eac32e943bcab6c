// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QStringList>

class QMimeData;

namespace desktop {

/// Names of the documents that are dragged: paths of local files, and http and https addresses. Other things
/// are passed over.
QStringList DroppedNames(const QMimeData& data);

/// Names to open for the arguments of the command line: paths are made absolute, addresses stay as they are,
/// quotes around a name are taken off. Arguments that only together name a file are one name.
QStringList CommandLineNames(const QStringList& arguments);

} // namespace desktop
