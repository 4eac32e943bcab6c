// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/xml/ErrorReport.h"
#include <QString>
#include <QStringView>
#include <optional>

namespace xml {

/// The XML declaration at the front of a text.
struct XmlDeclaration {
    bool present = false;
    QString data; ///< what stands between "<?xml" and "?>", without the blanks ahead of it, line ends as LF
    qsizetype end = 0;                  ///< the unit behind it; without a declaration the text's first
    std::optional<Complaint> complaint; ///< set when it is wrong; `end` is not to be used then
};

/// Reads the declaration. Its encoding may be any label, also one that starts with a digit: nothing is
/// converted by it.
XmlDeclaration ReadXmlDeclaration(QStringView text);

} // namespace xml
