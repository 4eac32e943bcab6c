// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/CellValue.h"
#include "core/model/Escaping.h"
#include "core/model/Probe.h"

namespace table {

namespace {

const QString kElement = QStringLiteral("temp"), kAttribute = QStringLiteral("attr");

// A "&" that begins a reference which is known everywhere.
bool BeginsEntity(QStringView rest) {
    for (const char* known : {"&amp;", "&lt;", "&gt;", "&quot;", "&apos;"}) {
        if (rest.startsWith(QLatin1String(known)))
            return true;
    }
    return false;
}

// Whether any parser takes a value in any place: nearly all values are plain, and need no probe.
bool IsPlain(QStringView typed) {
    for (qsizetype i = 0; i < typed.size(); ++i) {
        const char16_t unit = typed[i].unicode();
        const bool end = unit == u'>' && i > 0 && typed[i - 1] == u']';
        const bool reference = unit == u'&' && BeginsEntity(typed.sliced(i));
        if ((unit < u' ' && unit != u'\t') || unit >= 0xD800 || unit == u'<' || unit == u'"' || end ||
            (unit == u'&' && !reference))
            return false;
    }
    return true;
}

// As little as will do: what is left of the steps once the document can be read.
QString Escaped(QString typed, int step) {
    constexpr std::pair<const char*, const char*> kSteps[] = {
        {"\"", "&quot;"}, {"]]>", "]]&gt;"}, {"<", "&lt;"}};
    typed = mXMLEdit::WithAmpersandsEscaped(typed);
    for (int i = 0; i < step; ++i)
        typed.replace(QLatin1String(kSteps[i].first), QLatin1String(kSteps[i].second));
    return typed;
}

template <typename Good> std::optional<QString> Storable(const QString& typed, Good good) {
    constexpr int kSteps = 3;
    if (IsPlain(typed) || good(typed))
        return typed;
    for (int step = 0; step <= kSteps; ++step) {
        if (const QString escaped = Escaped(typed, step); good(escaped))
            return escaped;
    }
    const QString all = mXMLEdit::convertStringToXML(typed);
    return good(all) ? std::optional(all) : std::nullopt;
}

} // namespace

std::optional<QString> AttributeValue(Application& app, const QString& typed) {
    const auto value = Storable(typed, [&app](const QString& one) {
        return m_tvXML::Probe(app, m_tvXML::NodeAttributeValueProbe(one, kElement, kAttribute), 1).good();
    });
    return value ? std::optional(mXMLEdit::WithLineEndReferences(*value)) : std::nullopt;
}

std::optional<QString> TextValue(Application& app, const QString& typed) {
    return Storable(typed, [&app](const QString& one) {
        return m_tvXML::Probe(app, m_tvXML::NodeTextProbe(one, kElement)).good();
    });
}

void SayNoValue(Application& app) {
    app.services.prompts.Beep();
    app.services.prompts.MsgBox(
        QStringLiteral("This value holds characters that an XML document can not hold."),
        services::Buttons::Ok, services::Icon::Exclamation);
}

} // namespace table
