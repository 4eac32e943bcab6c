// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/SampleValues.h"
#include "core/model/Escaping.h"
#include "platform/text/TextTools.h"
#include "schema/PatternSample.h"
#include "schema/SchemaState.h"
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
    Pattern,
    Enumeration,
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
constexpr std::array<const char*, FacetCount> kFacets = {
    "pattern", "enumeration", "minInclusive", "minExclusive",   "maxExclusive", "maxInclusive",
    "length",  "minLength",   "maxLength",    "fractionDigits", "totalDigits"};

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
        return Sample{text::Str(text::Val(ValueOf(facets[MinExclusive])) + 1), facets[MinExclusive]};
    if (facets[MaxExclusive])
        return Sample{text::Str(text::Val(ValueOf(facets[MaxExclusive])) - 1), {}};
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

// Patterns know control characters that no document can hold, and repeat halves of characters (quirk 151).
QString WithoutOddCharacters(QString sample) {
    constexpr char16_t kFirstPlain = 0x20, kLastPlain = 0xFFFD;
    sample.removeIf([](QChar c) {
        const bool blank = c == u'\t' || c == u'\n' || c == u'\r';
        return (c.unicode() < kFirstPlain && !blank) || c.unicode() > kLastPlain;
    });
    return text::WithoutLoneHalves(sample);
}

} // namespace

bool SampleValues::spend(qsizetype characters) {
    spent_ += characters;
    return spent_ <= kMostCharacters;
}

QString SampleValues::patternSample(TreeNode pattern) const {
    const QString sample = GenerateSampleByPattern(app_, mXMLEdit::WithoutReferences(ValueOf(pattern)));
    return mXMLEdit::convertStringToXML(WithoutOddCharacters(sample));
}

SampleValues::Step SampleValues::step(TreeNode node) const {
    const TreeNode simpleType = IsNamed(node, "simpleType") ? node : GetChildNodeByName(node, "simpleType");
    const TreeNode restriction = simpleType ? GetChildNodeByName(simpleType, "restriction") : TreeNode();
    if (!restriction)
        return {};
    const Facets facets = FacetsOf(restriction);
    if (facets[Pattern])
        return {{patternSample(facets[Pattern]), facets[Pattern]}, {}};
    if (facets[Enumeration])
        return {{ValueOf(facets[Enumeration]), facets[Enumeration]}, {}};
    const QString base = LocalName(AttributeValue(restriction, QStringLiteral("base")));
    if (base.isEmpty())
        return {};
    if (const std::optional<Sample> bounded = BoundedSample(facets))
        return {*bounded, {}};
    return {{}, base};
}

Sample SampleValues::GetSimpleTypeSample(TreeNode node) {
    const Step first = step(node);
    return first.base.isEmpty() ? first.sample : GetSampleData(first.base);
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
