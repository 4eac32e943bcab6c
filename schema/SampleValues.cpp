// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/SampleValues.h"
#include "core/model/Escaping.h"
#include "platform/text/TextTools.h"
#include "schema/PatternSample.h"
#include "schema/SchemaState.h"
#include <QLocale>
#include <QRegularExpression>
#include <array>
#include <optional>

namespace schema {

namespace {

using controls::TreeNode;

constexpr qsizetype kMostCharacters = 16'000'000;

struct Row {
    const char* types; ///< with blanks between them
    const char* sample;
};
// "datetime" stands here in small letters: the schema language's own dateTime has no sample.
constexpr Row kSamples[] = {
    {"date", "1999-05-31"},
    {"time", "13:20:00"},
    {"datetime", "1999-05-31T13:20:00"},
    {"gMonth", "--05--"},
    {"gYear", "1999"},
    {"gYearMonth", "1999-02"},
    {"gDay", "21"},
    {"gMonthDay", "--05-31"},
    {"string normalizedString token", "Abc"},
    {"byte unsignedByte integer positiveInteger nonNegativeInteger int unsignedInt long unsignedLong short "
     "unsignedShort",
     "2"},
    {"negativeInteger nonPositiveInteger", "-2"},
    {"decimal float double", "1.1"},
    {"boolean", "1"},
    {"duration", "P1Y2M3DT10H30M12.3S"},
    {"Name", "shipTo"},
    {"anyURI", "https://vantrel.example/"},
    {"language", "en-US"},
};

std::optional<QString> BuiltInSample(const QString& typeName) {
    for (const Row& row : kSamples) {
        if (QString::fromLatin1(row.types).split(u' ').contains(typeName))
            return QString::fromLatin1(row.sample);
    }
    return {};
}

enum Facet {
    MinInclusive,
    MinExclusive,
    MaxExclusive,
    MaxInclusive,
    Length,
    MinLength,
    MaxLength,
    FractionDigits,
    TotalDigits,
    FacetCount
};
constexpr std::array<const char*, FacetCount> kFacets = {"minInclusive", "minExclusive",   "maxExclusive",
                                                         "maxInclusive", "length",         "minLength",
                                                         "maxLength",    "fractionDigits", "totalDigits"};

/// The first facet of each kind.
using Facets = std::array<TreeNode, FacetCount>;
Facets FacetsOf(TreeNode restriction) {
    Facets facets;
    for (TreeNode child = restriction.Child(); child; child = child.Next()) {
        const QString name = LocalName(child.Text());
        for (std::size_t i = 0; i < facets.size(); ++i) {
            if (!facets[i] && name == QLatin1String(kFacets[i]))
                facets[i] = child;
        }
    }
    return facets;
}

QString ValueOf(TreeNode facet) {
    return AttributeValue(facet, QStringLiteral("value"));
}
QString Ones(int count) {
    return RepeatString(count, QStringLiteral("1"));
}
int CountOf(TreeNode facet) {
    return text::ValInt16(ValueOf(facet));
}

// Longer ones count as none.
bool IsTooLong(TreeNode length) {
    constexpr double kLongest = 32767;
    return length && text::Val(ValueOf(length)) > kLongest;
}

QString MagnitudeAbove(QString digits) {
    qsizetype at = digits.size();
    while (at > 0 && digits[at - 1] == u'9')
        digits[--at] = u'0';
    if (at == 0)
        return u'1' + digits;
    digits[at - 1] = QChar(digits[at - 1].unicode() + 1);
    return digits;
}
// Of digits that begin with another one than zero.
QString MagnitudeBelow(QString digits) {
    qsizetype at = digits.size() - 1;
    for (; digits[at] == u'0'; --at)
        digits[at] = u'9';
    digits[at] = QChar(digits[at].unicode() - 1);
    return digits.startsWith(u'0') ? digits.mid(1) : digits;
}

// A number holds 15 digits: longer ones are counted on as they are written.
QString NextTo(const QString& value, int step) {
    static const QRegularExpression longInteger(QStringLiteral("^\\s*([-+]?)0*([1-9][0-9]{14,})\\s*$"));
    if (const QRegularExpressionMatch match = longInteger.match(value); match.hasMatch()) {
        const bool negative = match.captured(1) == QStringLiteral("-");
        const QString digits = match.captured(2);
        return (negative ? QStringLiteral("-") : QString()) +
               ((step > 0) != negative ? MagnitudeAbove(digits) : MagnitudeBelow(digits));
    }
    const double next = text::Val(value) + step;
    const QString written = text::Str(next);
    return written.contains(u'E') ? QString::number(next, 'f', QLocale::FloatingPointShortest) : written;
}

QString DigitsSample(const Facets& facets) {
    const int total = facets[TotalDigits] ? CountOf(facets[TotalDigits]) : 0;
    if (!facets[FractionDigits])
        return Ones(total);
    const int fraction = CountOf(facets[FractionDigits]);
    const QString whole = total > fraction ? Ones(total - fraction) : QStringLiteral("1");
    return whole + u'.' + Ones(fraction);
}

/// The sample of the facets that bound a value or its length; nothing where the base type has it.
std::optional<Sample> BoundedSample(const Facets& facets) {
    const auto orBase = [](const QString& value) {
        return value.isEmpty() ? std::nullopt : std::optional(Sample{value, {}});
    };
    if (facets[MinInclusive])
        return orBase(ValueOf(facets[MinInclusive]));
    if (facets[MinExclusive])
        return Sample{NextTo(ValueOf(facets[MinExclusive]), 1), facets[MinExclusive]};
    if (facets[MaxExclusive])
        return Sample{NextTo(ValueOf(facets[MaxExclusive]), -1), {}};
    if (facets[MaxInclusive])
        return Sample{ValueOf(facets[MaxInclusive]), {}};
    for (const Facet length : {Length, MinLength, MaxLength}) {
        if (facets[length])
            return orBase(Ones(CountOf(facets[length])));
    }
    if (facets[FractionDigits] || facets[TotalDigits])
        return Sample{DigitsSample(facets), {}};
    return {};
}

// Patterns know control characters that no document can hold (quirk 150).
QString WithoutOddCharacters(QString sample) {
    constexpr char16_t kFirstPlain = 0x20, kLastPlain = 0xFFFD;
    sample.removeIf([](QChar c) {
        const bool blank = c == u'\t' || c == u'\n' || c == u'\r';
        return (c.unicode() < kFirstPlain && !blank) || c.unicode() > kLastPlain;
    });
    return sample;
}

} // namespace

bool SampleValues::spend(qsizetype characters) {
    spent_ += characters;
    return !isFull();
}

bool SampleValues::isFull() const {
    return spent_ > kMostCharacters;
}

// The pattern is what its value says, and the sample is written as values are (quirk 167).
QString SampleValues::GetPatternSample(TreeNode pattern) {
    const std::optional<QString> sample =
        PatternSampleIfAny(app_, mXMLEdit::WithoutReferences(ValueOf(pattern)));
    tooLong_ = tooLong_ || !sample;
    return mXMLEdit::convertStringToXML(WithoutOddCharacters(sample.value_or(QString())));
}

QString SampleValues::GetEnumerationSample(TreeNode enumeration) {
    return ValueOf(enumeration);
}

SampleValues::Step SampleValues::step(TreeNode node) {
    const TreeNode simpleType = IsNamed(node, "simpleType") ? node : GetChildNodeByName(node, "simpleType");
    const TreeNode restriction = simpleType ? GetChildNodeByName(simpleType, "restriction") : TreeNode();
    if (!restriction)
        return {};
    if (const TreeNode pattern = GetChildNodeByName(restriction, "pattern"))
        return {{GetPatternSample(pattern), pattern}, {}};
    if (const TreeNode enumeration = GetChildNodeByName(restriction, "enumeration"))
        return {{GetEnumerationSample(enumeration), enumeration}, {}};
    const QString base = LocalName(AttributeValue(restriction, QStringLiteral("base")));
    if (base.isEmpty())
        return {};
    const Facets facets = FacetsOf(restriction);
    tooLong_ = tooLong_ || IsTooLong(facets[Length]) || IsTooLong(facets[MinLength]) ||
               IsTooLong(facets[FractionDigits]);
    if (const std::optional<Sample> bounded = BoundedSample(facets))
        return {*bounded, {}};
    return {{}, base};
}

Sample SampleValues::GetSimpleTypeSample(TreeNode node) {
    if (const auto known = own_.constFind(node.Data()); known != own_.constEnd())
        return *known;
    const Step first = step(node);
    const Sample sample = first.base.isEmpty() ? first.sample : GetSampleData(first.base);
    own_.insert(node.Data(), sample);
    return sample;
}

Sample SampleValues::GetSampleData(const QString& typeName) {
    QStringList chain;
    Sample found;
    for (QString name = typeName; !name.isEmpty();) {
        if (const auto known = known_.constFind(name); known != known_.constEnd()) {
            found = *known;
            break;
        }
        chain += name;
        known_.insert(name, {}); // what comes back to it has none
        if (const std::optional<QString> builtIn = BuiltInSample(name)) {
            found.value = *builtIn;
            break;
        }
        const TreeNode type = declarations_.GetRefSimpleTypeNode(name);
        const Step next = type ? step(type) : Step();
        found = next.sample;
        name = next.base;
    }
    for (const QString& name : chain)
        known_.insert(name, found);
    return found;
}

} // namespace schema
