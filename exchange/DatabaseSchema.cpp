// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/DatabaseSchema.h"
#include "core/model/Application.h"
#include "exchange/DataTypes.h"
#include "exchange/FieldNames.h"

namespace exchange {

namespace {

using services::DatabaseColumn;
using services::DatabaseForeignKey;
using services::DatabaseResult;
using services::DatabaseTable;

const QString kEnd = QStringLiteral("\r\n");

/// A table with all that is asked about it.
struct TableShape {
    DatabaseTable table;
    std::vector<DatabaseColumn> columns;
    QStringList key;
    std::vector<DatabaseForeignKey> foreignKeys;
};

DatabaseResult ReadShapes(services::Database& database, bool keys, std::vector<TableShape>& shapes) {
    std::vector<DatabaseTable> tables;
    DatabaseResult result = database.Tables(tables);
    for (const DatabaseTable& table : tables) {
        if (!result || !IsDataTable(table))
            continue;
        TableShape& shape = shapes.emplace_back();
        shape.table = table;
        result = database.Columns(table, shape.columns);
        if (result && keys) { // a driver that knows nothing of keys has none to declare
            database.PrimaryKey(table, shape.key);
            database.ForeignKeys(table, shape.foreignKeys);
        }
    }
    return result;
}

void MakeNamesValid(Application& app, std::vector<TableShape>& shapes) {
    const auto valid = [&](QString& name) { name = ValidName(app, name); };
    for (TableShape& shape : shapes) {
        valid(shape.table.name);
        std::vector<QString> names;
        for (const DatabaseColumn& column : shape.columns)
            names.push_back(column.name);
        names = ValidNames(app, names);
        for (std::size_t i = 0; i < names.size(); ++i)
            shape.columns[i].name = names[i];
        for (QString& name : shape.key)
            valid(name);
        for (DatabaseForeignKey& key : shape.foreignKeys) {
            valid(key.table);
            for (QStringList* part : {&key.columns, &key.targets}) {
                for (QString& name : *part)
                    valid(name);
            }
        }
    }
}

QString StringColumn(const DatabaseColumn& column, const QString& kind, const QString& indent, bool repair) {
    const auto line = [&](int depth, const QString& text) {
        return indent + QString(depth, u'\t') + text + kEnd;
    };
    if (repair && column.size <= 0) // of any length
        return line(0, QStringLiteral("<xsd:%1 name=\"%2\" type=\"xsd:string\"/>").arg(kind, column.name));
    // The blank stands for the positive sign; readers of these schemas expect it (quirk 102).
    const QString length = (repair ? QString() : QStringLiteral(" ")) + QString::number(column.size);
    return line(0, QStringLiteral("<xsd:%1 name=\"").arg(kind) + column.name + QStringLiteral("\">")) +
           line(1, QStringLiteral("<xsd:simpleType>")) +
           line(2, QStringLiteral("<xsd:restriction base=\"xsd:string\">")) +
           line(3, QStringLiteral("<xsd:maxLength value=\"") + length + QStringLiteral("\"/>")) +
           line(2, QStringLiteral("</xsd:restriction>")) + line(1, QStringLiteral("</xsd:simpleType>")) +
           line(0, QStringLiteral("</xsd:%1>").arg(kind));
}

QString TableSchema(Application& app, const TableShape& shape, const SchemaOptions& options) {
    const QString indent(3, u'\t');
    QString columns;
    for (const DatabaseColumn& column : shape.columns)
        columns += ColumnSchema(app, column, indent, options);
    if (!options.attributes)
        columns = indent + QStringLiteral("<xsd:sequence>\r\n") + columns + indent +
                  QStringLiteral("</xsd:sequence>\r\n");
    return QStringLiteral("\t<xsd:element name=\"") + shape.table.name +
           QStringLiteral("\">\r\n\t\t<xsd:complexType>\r\n") + columns +
           QStringLiteral("\t\t</xsd:complexType>\r\n\t</xsd:element>\r\n");
}

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

bool HasKey(const std::vector<TableShape>& shapes, const DatabaseForeignKey& key) {
    return std::any_of(shapes.begin(), shapes.end(), [&](const TableShape& shape) {
        return shape.table.name == key.table && shape.key == key.targets;
    });
}

/// The element around the rows of all tables, with their keys.
QString RootSchema(const std::vector<TableShape>& shapes, bool attributes) {
    QString rows, keys, references;
    for (const TableShape& shape : shapes) {
        const QString& name = shape.table.name;
        rows += QStringLiteral("\t\t\t\t<xsd:element ref=\"%1\"/>\r\n").arg(name);
        if (!shape.key.isEmpty())
            keys += Key(QStringLiteral("key"), QStringLiteral("name=\"%1_key\"").arg(name), name, shape.key,
                        attributes);
        int number = 0;
        for (const DatabaseForeignKey& key : shape.foreignKeys) {
            if (HasKey(shapes, key))
                references += Key(QStringLiteral("keyref"),
                                  QStringLiteral("name=\"%1_ref%2\" refer=\"%3_key\"")
                                      .arg(name)
                                      .arg(++number)
                                      .arg(key.table),
                                  name, key.columns, attributes);
        }
    }
    if (rows.isEmpty())
        return {};
    return QStringLiteral("\t<xsd:element name=\"data\">\r\n\t\t<xsd:complexType>\r\n"
                          "\t\t\t<xsd:choice minOccurs=\"0\" maxOccurs=\"unbounded\">\r\n") +
           rows + QStringLiteral("\t\t\t</xsd:choice>\r\n\t\t</xsd:complexType>\r\n") + keys + references +
           QStringLiteral("\t</xsd:element>\r\n");
}

} // namespace

bool IsDataTable(const DatabaseTable& table) {
    return table.type != QStringLiteral("VIEW") && table.type != QStringLiteral("SYSTEM TABLE");
}

QString ColumnSchema(Application& app, const DatabaseColumn& column, const QString& indent,
                     const SchemaOptions& options) {
    const QString kind = options.attributes ? QStringLiteral("attribute") : QStringLiteral("element");
    const TypeForm form = FormOfType(DataTypeOf(column), options.repair);
    switch (form.kind) {
    case TypeForm::Nothing:
        return {};
    case TypeForm::Unknown:
        ErrorReportBox(app, text::Fault(text::kFaultBadCall, column.typeName),
                       QStringLiteral("m_DBBox.sRes Unknown Type"));
        return {};
    case TypeForm::String:
        return StringColumn(column, kind, indent, options.repair);
    case TypeForm::Named:
        break;
    }
    return indent + QStringLiteral("<xsd:") + kind + QStringLiteral(" name=\"") + column.name +
           QStringLiteral("\" type=\"") + QLatin1String(form.name) + QStringLiteral("\"/>\r\n");
}

QString SchemaOf(Application& app, services::Database& database, const SchemaOptions& options,
                 DatabaseResult& result) {
    std::vector<TableShape> shapes;
    result = ReadShapes(database, options.repair, shapes);
    if (options.repair)
        MakeNamesValid(app, shapes);
    QString schema =
        QStringLiteral("<?xml version=\"1.0\" encoding=\"") + app.options.Encoding +
        QStringLiteral("\"?>\r\n<xsd:schema xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\">\r\n");
    for (const TableShape& shape : shapes)
        schema += TableSchema(app, shape, options);
    if (options.repair)
        schema += RootSchema(shapes, options.attributes);
    return schema + QStringLiteral("</xsd:schema>");
}

} // namespace exchange
