// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/DatabaseSchema.h"
#include "core/model/Application.h"
#include "exchange/DataTypes.h"
#include "exchange/FieldNames.h"
#include <QHash>

namespace exchange {

namespace {

using services::DatabaseColumn;
using services::DatabaseFailure;
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

// What can't be read of one table leaves that without columns, and the others as they are; but not where the
// user has had enough, or the database doesn't answer any more.
DatabaseResult ReadShapes(Application& app, services::Database& database, bool keys,
                          std::vector<TableShape>& shapes) {
    std::vector<DatabaseTable> tables;
    DatabaseResult first = database.Tables(tables);
    for (const DatabaseTable& table : tables) {
        if (!IsDataTable(table))
            continue;
        TableShape& shape = shapes.emplace_back();
        shape.table = table;
        const DatabaseResult result = database.Columns(table, shape.columns);
        if (result && keys) { // a driver that knows nothing of keys has none to declare
            database.PrimaryKey(table, shape.key);
            database.ForeignKeys(table, shape.foreignKeys);
        }
        if (result)
            continue;
        ErrorReportBox(app, text::Fault(text::kFaultBadCall, result.text),
                       QStringLiteral("frmCreateDBSchema@GetTableColumnsSchema"));
        if (first)
            first = {result.failure, table.name + QStringLiteral(": ") + result.text};
        if (result.failure != DatabaseFailure::Failed)
            break;
    }
    return first;
}

/// New names by the old ones; the first of equal ones counts.
using Renamed = QHash<QString, QString>;

Renamed MakeValid(Application& app, const std::vector<QString*>& names) {
    std::vector<QString> old;
    for (const QString* name : names)
        old.push_back(*name);
    const std::vector<QString> valid = ValidNames(app, old);
    Renamed renamed;
    for (std::size_t i = 0; i < old.size(); ++i) {
        *names[i] = valid[i];
        if (!renamed.contains(old[i]))
            renamed.insert(old[i], valid[i]);
    }
    return renamed;
}

void Rename(QStringList& names, const Renamed& renamed) {
    for (QString& name : names)
        name = renamed.value(name);
}

/// All names become valid ones, each of them another one; keys lead where they did. Gives the root's name.
QString MakeNamesValid(Application& app, std::vector<TableShape>& shapes) {
    QHash<QString, Renamed> columns; // of tables by their old names
    for (TableShape& shape : shapes) {
        std::vector<QString*> names;
        for (DatabaseColumn& column : shape.columns)
            names.push_back(&column.name);
        const Renamed renamed = MakeValid(app, names);
        Rename(shape.key, renamed);
        for (DatabaseForeignKey& key : shape.foreignKeys)
            Rename(key.columns, renamed);
        if (!columns.contains(shape.table.name))
            columns.insert(shape.table.name, renamed);
    }
    QString root = QStringLiteral("data");
    std::vector<QString*> tables;
    for (TableShape& shape : shapes)
        tables.push_back(&shape.table.name);
    tables.push_back(&root);
    const Renamed renamed = MakeValid(app, tables);
    for (TableShape& shape : shapes) {
        for (DatabaseForeignKey& key : shape.foreignKeys) {
            Rename(key.targets, columns.value(key.table));
            key.table = renamed.value(key.table);
        }
    }
    return root;
}

/// Drivers tell a size for texts of any length, too: as these say, their own limit for them.
bool HasLength(const DatabaseColumn& column) {
    constexpr qint64 kUntold = 255, kEndless = 1 << 30;
    const int type = DataTypeOf(column);
    const bool told = column.size != kUntold || column.typeName.contains(u'(');
    return column.size > 0 && column.size < kEndless && told && type != adLongVarChar &&
           type != adLongVarWChar;
}

QString StringColumn(const DatabaseColumn& column, const QString& kind, const QString& indent, bool repair) {
    const auto line = [&](int depth, const QString& text) {
        return indent + QString(depth, u'\t') + text + kEnd;
    };
    if (repair && !HasLength(column))
        return line(0, QStringLiteral("<xsd:%1 name=\"%2\" type=\"xsd:string\"/>").arg(kind, column.name));
    // The blank stands for the positive sign; readers of these schemas expect it (quirk 109).
    const QString length = (repair ? QString() : QStringLiteral(" ")) + QString::number(column.size);
    const QString most = line(3, QStringLiteral("<xsd:maxLength value=\"") + length + QStringLiteral("\"/>"));
    return line(0, QStringLiteral("<xsd:%1 name=\"").arg(kind) + column.name + QStringLiteral("\">")) +
           line(1, QStringLiteral("<xsd:simpleType>")) +
           line(2, QStringLiteral("<xsd:restriction base=\"xsd:string\">")) +
           (column.size > 0 ? most : QString()) + // quirk 141
           line(2, QStringLiteral("</xsd:restriction>")) + line(1, QStringLiteral("</xsd:simpleType>")) +
           line(0, QStringLiteral("</xsd:%1>").arg(kind));
}

QString GetTableColumnsSchema(Application& app, const TableShape& shape, const QString& indent,
                              const SchemaOptions& options) {
    QString columns;
    for (const DatabaseColumn& column : shape.columns)
        columns += GetADOXColSchemaString(app, column, indent, options);
    return options.attributes ? columns
                              : indent + QStringLiteral("<xsd:sequence>\r\n") + columns + indent +
                                    QStringLiteral("</xsd:sequence>\r\n");
}

QString TableSchema(Application& app, const TableShape& shape, const SchemaOptions& options) {
    return QStringLiteral("\t<xsd:element name=\"") + shape.table.name +
           QStringLiteral("\">\r\n\t\t<xsd:complexType>\r\n") +
           GetTableColumnsSchema(app, shape, QString(3, u'\t'), options) +
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

/// The element around the rows of all tables, with their keys.
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

/// What a check of the schema will find; empty where all is well.
QString ComplaintOf(Application& app, const std::vector<TableShape>& shapes, const QString& schema) {
    std::vector<QString> names;
    for (const TableShape& shape : shapes) {
        names.push_back(shape.table.name);
        for (const DatabaseColumn& column : shape.columns)
            names.push_back(column.name);
    }
    QStringList complaints;
    if (const QString bad = FirstBadName(app, names); !bad.isNull())
        complaints << QStringLiteral("The name \"%1\" is no name in XML.").arg(bad);
    if (schema.contains(QStringLiteral("<xsd:maxLength value=\" ")))
        complaints << QStringLiteral("The lengths begin with a blank.");
    if (!complaints.isEmpty())
        complaints << QStringLiteral("A check will refuse the schema; the box for valid names mends that.");
    return complaints.join(u' ');
}

} // namespace

bool IsDataTable(const DatabaseTable& table) {
    return table.type != QStringLiteral("VIEW") && table.type != QStringLiteral("SYSTEM TABLE");
}

QString GetADOXColSchemaString(Application& app, const DatabaseColumn& column, const QString& indent,
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

MadeSchema SchemaOf(Application& app, services::Database& database, const SchemaOptions& options) {
    MadeSchema made;
    std::vector<TableShape> shapes;
    made.result = ReadShapes(app, database, options.repair, shapes);
    QString root;
    if (options.repair)
        root = MakeNamesValid(app, shapes);
    made.text = QStringLiteral("<?xml version=\"1.0\" encoding=\"") + app.options.Encoding +
                QStringLiteral("\"?>\r\n<xsd:schema xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\">\r\n");
    for (const TableShape& shape : shapes)
        made.text += TableSchema(app, shape, options);
    if (options.repair)
        made.text += RootSchema(root, shapes, options.attributes);
    made.text += QStringLiteral("</xsd:schema>");
    if (!options.repair)
        made.complaint = ComplaintOf(app, shapes, made.text);
    return made;
}

} // namespace exchange
