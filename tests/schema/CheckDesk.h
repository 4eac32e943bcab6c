// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "schema/Diagnostics.h"
#include "tests/nodes/ListDesk.h"

namespace test {

/// A window whose check is looked at.
struct CheckDesk : ListDesk {
    void Show(const QString& name, const QByteArray& text) { w = &t.OpenText(name, text); }
    controls::ListView& Faults() { return schema::DiagnosticsOf(*w).lvDiagnostics; }
    std::string Fault(int row, int column) {
        const controls::ListItem& item = Faults().Item(row);
        return (column == 1 ? item.Text : item.Sub[static_cast<std::size_t>(column - 2)]).toStdString();
    }
    QByteArray Inside(const QByteArray& inside) {
        return "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>" + inside + "</xs:schema>";
    }
    void Validate() {
        w->tbsXML.Select(QStringLiteral("textview"));
        t.ChooseMenu(QStringLiteral("mnuXMLValidate"));
    }
    QString LastText() { return t.prompts.boxes.empty() ? QString() : t.prompts.boxes.back().text; }
};

} // namespace test
