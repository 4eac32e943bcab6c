// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/FieldNames.h"
#include "core/model/Probe.h"
#include "platform/text/TextTools.h"
#include "platform/xml/TagSizeGuard.h"
#include <QHash>
#include <QSet>

namespace exchange {

namespace {

constexpr qsizetype kLongestName = 10'000; // units

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

/// What a character may do in a name, asked once for each.
class NameCharacters {
public:
    explicit NameCharacters(Application& app) : app_(app) {}
    bool MayBegin(QStringView character) { return Asked(starts_, character, {}); }
    bool MayFollow(QStringView character) { return Asked(others_, character, QStringLiteral("x")); }

private:
    bool Asked(QHash<char32_t, bool>& known, QStringView character, const QString& before) {
        const char32_t number = character.size() == 2 ? QChar::surrogateToUcs4(character[0], character[1])
                                                      : character[0].unicode();
        const auto found = known.constFind(number);
        if (found != known.constEnd())
            return *found;
        const bool good = number != u':' && IsName(app_, before + character.toString());
        known.insert(number, good);
        return good;
    }
    Application& app_;
    QHash<char32_t, bool> starts_, others_;
};

// Surrogate pairs are one character. No longer than the parser takes a name: a line of megabytes isn't a
// header.
QString MadeValid(NameCharacters& characters, const QString& name) {
    QString valid;
    for (qsizetype at = 0; at < name.size() && valid.size() < kLongestName;) {
        const bool pair = name[at].isHighSurrogate() && at + 1 < name.size() && name[at + 1].isLowSurrogate();
        const QStringView character = QStringView(name).sliced(at, pair ? 2 : 1);
        at += character.size();
        if (valid.isEmpty() && !characters.MayBegin(character))
            valid = QStringLiteral("_");
        if (valid.isEmpty() || characters.MayFollow(character))
            valid += character;
        else if (valid != QStringLiteral("_"))
            valid += u'_';
    }
    return valid;
}

/// The numbers that a text has behind the word "field", and those that these begin with.
QSet<qsizetype> FieldNumbersIn(QStringView text) {
    constexpr qsizetype kMost = 1'000'000'000; // there are no more fields
    static const QString kWord = QStringLiteral("field");
    QSet<qsizetype> numbers;
    for (qsizetype at = text.indexOf(kWord); at >= 0; at = text.indexOf(kWord, at + 1)) {
        qsizetype number = 0;
        for (const QChar unit : text.sliced(at + kWord.size())) {
            if (unit < u'0' || unit > u'9' || number > kMost)
                break;
            number = number * 10 + (unit.unicode() - u'0');
            if (number == 0) // a number begins with another digit
                break;
            numbers.insert(number);
        }
    }
    return numbers;
}

/// A name as it stands in a sentence.
QString Shortened(const QString& name) {
    constexpr qsizetype kShown = 60;
    return name.size() <= kShown ? name : name.first(kShown) + QStringLiteral("...");
}

} // namespace

std::vector<QString> NamesOfHeader(const std::vector<QString>& cells, const QString& headerLine) {
    std::vector<QString> names;
    const QSet<qsizetype> taken = FieldNumbersIn(headerLine);
    qsizetype k = 0;
    for (QString name : cells) {
        name.replace(u' ', u'_');
        if (text::Trim(name).isEmpty()) {
            do
                ++k;
            while (taken.contains(k));
            name = QStringLiteral("field") + QString::number(k);
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
    QHash<QString, int> last; // the number that a name has got last; lower ones are not free any more
    for (const QString& name : names) {
        const QString made = MadeValid(characters, name);
        QString free = made;
        int number = last.value(made, 1);
        while (given.contains(free) || (free != name && taken.contains(free)))
            free = made + u'_' + QString::number(++number);
        last.insert(made, number);
        given += free;
        valid.push_back(free);
    }
    return valid;
}

QString FirstBadName(Application& app, const std::vector<QString>& names) {
    NameCharacters characters(app); // asking for each name takes long where there are many
    for (const QString& name : names) {
        const bool plain = !name.isEmpty() && MadeValid(characters, name) == name;
        if (!plain && !IsName(app, name))
            return name.isNull() ? QStringLiteral("") : name;
    }
    return {};
}

QString NameComplaint(Application& app, const std::vector<QString>& names, Filling filling) {
    if (filling == Filling::Attributes && names.size() > xml::kMaxAttributes)
        return QStringLiteral(
                   "A row has more than %1 attributes: the document will not parse. As elements the "
                   "fields can be more.")
            .arg(xml::kMaxAttributes);
    if (names.empty() || Parses(app, RowOf(names, filling)))
        return {};
    if (const QString bad = FirstBadName(app, names); !bad.isNull())
        return QStringLiteral("The field name \"%1\" is no name in XML: the document will not parse.")
            .arg(Shortened(bad));
    QSet<QString> seen;
    for (const QString& name : names) {
        if (seen.contains(name))
            return QStringLiteral("The field name \"%1\" stands twice: the document will not parse.")
                .arg(Shortened(name));
        seen += name;
    }
    return QStringLiteral("The field names make a document that will not parse.");
}

} // namespace exchange
