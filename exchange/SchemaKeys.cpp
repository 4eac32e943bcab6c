// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/SchemaKeys.h"

namespace exchange {

namespace {

using services::DatabaseForeignKey;

QString Fields(const QStringList& names, bool attributes) {
    QString fields;
    for (const QString& name : names)
        fields += QStringLiteral("\t\t\t<xsd:field xpath=\"") +
                  (attributes ? QStringLiteral("@") : QString()) + name + QStringLiteral("\"/>\r\n");
    return fields;
}

QString Key(const QString& kind, const QString& head, const QString& table, const QStringList& fields,
            bool attributes) {
    return QStringLiteral("\t\t<xsd:%1 %2>\r\n\t\t\t<xsd:selector xpath=\"%3\"/>\r\n")
               .arg(kind, head, table) +
           Fields(fields, attributes) + QStringLiteral("\t\t</xsd:%1>\r\n").arg(kind);
}

/// The columns of a foreign key in the order of the key that they lead to; none where they lead to no key.
QStringList ReferringColumns(const std::vector<TableShape>& shapes, const DatabaseForeignKey& key) {
    for (const TableShape& shape : shapes) {
        if (shape.table.name != key.table || shape.key.size() != key.targets.size())
            continue;
        QStringList columns;
        for (const QString& target : shape.key) {
            const qsizetype at = key.targets.indexOf(target);
            if (at < 0)
                return {};
            columns << key.columns[at];
        }
        return columns;
    }
    return {};
}

QString References(const std::vector<TableShape>& shapes, const TableShape& shape, bool attributes) {
    QString references;
    int number = 0;
    for (const DatabaseForeignKey& key : shape.foreignKeys) {
        const QStringList columns = ReferringColumns(shapes, key);
        const QString head = QStringLiteral("name=\"") + shape.table.name + QStringLiteral("_ref") +
                             QString::number(number + 1) + QStringLiteral("\" refer=\"") + key.table +
                             QStringLiteral("_key\"");
        if (columns.isEmpty())
            continue;
        ++number;
        references += Key(QStringLiteral("keyref"), head, shape.table.name, columns, attributes);
    }
    return references;
}

} // namespace

QString RootSchema(const QString& root, const std::vector<TableShape>& shapes, bool attributes) {
    QString rows, keys, references;
    for (const TableShape& shape : shapes) {
        const QString& name = shape.table.name;
        rows += QStringLiteral("\t\t\t\t<xsd:element ref=\"") + name + QStringLiteral("\"/>\r\n");
        if (!shape.key.isEmpty())
            keys += Key(QStringLiteral("key"), QStringLiteral("name=\"") + name + QStringLiteral("_key\""),
                        name, shape.key, attributes);
        references += References(shapes, shape, attributes);
    }
    if (rows.isEmpty())
        return {};
    return QStringLiteral("\t<xsd:element name=\"") + root +
           QStringLiteral("\">\r\n\t\t<xsd:complexType>\r\n"
                          "\t\t\t<xsd:choice minOccurs=\"0\" maxOccurs=\"unbounded\">\r\n") +
           rows + QStringLiteral("\t\t\t</xsd:choice>\r\n\t\t</xsd:complexType>\r\n") + keys + references +
           QStringLiteral("\t</xsd:element>\r\n");
}

} // namespace exchange
