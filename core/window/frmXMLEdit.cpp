// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/window/frmXMLEdit.h"
#include "core/commands/WindowEvents.h"

const WindowKind& frmXMLEdit::Kind() {
    static const WindowKind kind{QStringLiteral("frmXMLEdit"),
                                 QStringLiteral(".xml"),
                                 false,
                                 true,
                                 {{QStringLiteral("listview"), QStringLiteral("List View")},
                                  {QStringLiteral("textview"), QStringLiteral("Text View")},
                                  {QStringLiteral("tableview"), QStringLiteral("Table View")},
                                  {QStringLiteral("browserview"), QStringLiteral("Browser View")},
                                  {QStringLiteral("schema"), QStringLiteral("Schema View")}}};
    return kind;
}

frmXMLEdit::frmXMLEdit(Application& app) : window(app, Kind()) {
    Form_Load(window);
}
