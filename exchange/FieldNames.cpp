// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/FieldNames.h"
#include "core/model/Probe.h"
#include "platform/text/TextTools.h"
#include <QHash>
#include <QSet>

namespace exchange {

namespace {

bool Parses(Application& app, const QString& document) {
    return m_tvXML::Probe(app, document, m_tvXML::kAnyNumber, xml::Prefixes::Declared).good();
}

bool IsName(Application& app, const QString& name) {
    return Parses(app, u'<' + name + QStringLiteral("/>")) && !name.contains(u' ');
}

QString RowOf(const std::vector<QString>& names, Filling filling) {
    RowsXml rows(names, filling);
    rows.Begin();
    rows.BeginRow();
    for (std::size_t i = 0; i < names.size(); ++i)
        rows.Field({});
    rows.EndRow();
    return rows.Finish().toString();
}

/// The units of a name one by one, surrogate pairs together.
QStringList CharactersOf(const QString& name) {
    QStringList characters;
    for (qsizetype at = 0; at < name.size(); ++at) {
        const bool pair = name[at].isHighSurrogate() && at + 1 < name.size() && name[at + 1].isLowSurrogate();
        characters << name.mid(at, pair ? 2 : 1);
        at += pair ? 1 : 0;
    }
    return characters;
}

/// What a character may do in a name, asked once for each.
class NameCharacters {
public:
    explicit NameCharacters(Application& app) : app_(app) {}
    bool MayBegin(const QString& character) { return Asked(starts_, character, character); }
    bool MayFollow(const QString& character) { return Asked(others_, character, u'x' + character); }

private:
    bool Asked(QHash<QString, bool>& known, const QString& character, const QString& name) {
        const auto found = known.constFind(character);
        if (found != known.constEnd())
            return *found;
        const bool good = character != QStringLiteral(":") && IsName(app_, name);
        known.insert(character, good);
        return good;
    }
    Application& app_;
    QHash<QString, bool> starts_, others_;
};

QString MadeValid(NameCharacters& characters, const QString& name) {
    QString valid;
    for (const QString& character : CharactersOf(name)) {
        if (valid.isEmpty() && !characters.MayBegin(character))
            valid = QStringLiteral("_");
        if (valid.isEmpty() || characters.MayFollow(character))
            valid += character;
        else if (valid != QStringLiteral("_"))
            valid += u'_';
    }
    return valid;
}

} // namespace

std::vector<QString> NamesOfHeader(const std::vector<QString>& cells, const QString& headerLine) {
    std::vector<QString> names;
    int k = 0;
    for (QString name : cells) {
        name.replace(u' ', u'_');
        if (text::Trim(name).isEmpty()) {
            do
                name = QStringLiteral("field") + QString::number(++k);
            while (headerLine.contains(name));
        }
        names.push_back(name);
    }
    return names;
}

std::vector<QString> NumberedNames(std::size_t count) {
    std::vector<QString> names;
    for (std::size_t i = 1; i <= count; ++i)
        names.push_back(QStringLiteral("field") + QString::number(i));
    return names;
}

std::vector<QString> ValidNames(Application& app, const std::vector<QString>& names) {
    NameCharacters characters(app);
    std::vector<QString> valid;
    QSet<QString> taken(names.begin(), names.end()); // a number must not make the name of another one
    QSet<QString> given;
    for (const QString& name : names) {
        const QString made = MadeValid(characters, name);
        QString free = made;
        for (int number = 2; given.contains(free) || (free != name && taken.contains(free)); ++number)
            free = made + u'_' + QString::number(number);
        given += free;
        valid.push_back(free);
    }
    return valid;
}

QString FirstBadName(Application& app, const std::vector<QString>& names) {
    for (const QString& name : names) {
        if (!IsName(app, name))
            return name.isNull() ? QStringLiteral("") : name;
    }
    return {};
}

QString NameComplaint(Application& app, const std::vector<QString>& names, Filling filling) {
    if (names.empty() || Parses(app, RowOf(names, filling)))
        return {};
    if (const QString bad = FirstBadName(app, names); !bad.isNull())
        return QStringLiteral("The field name \"%1\" is no name in XML: the document will not parse.")
            .arg(bad);
    QSet<QString> seen;
    for (const QString& name : names) {
        if (seen.contains(name))
            return QStringLiteral("The field name \"%1\" stands twice: the document will not parse.")
                .arg(name);
        seen += name;
    }
    return QStringLiteral("The field names make a document that will not parse.");
}

} // namespace exchange
