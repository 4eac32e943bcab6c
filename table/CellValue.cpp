// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/CellValue.h"
#include "core/model/Escaping.h"
#include "core/model/Probe.h"
#include "platform/text/TextTools.h"
#include <algorithm>

namespace table {

namespace {

const QString kElement = QStringLiteral("temp"), kAttribute = QStringLiteral("attr");

// Letters that mean nothing to a parser anywhere: nearly all values hold no others, and are not probed.
bool IsPlain(QStringView typed) {
    return std::all_of(typed.begin(), typed.end(), [](QChar c) {
        const char16_t unit = c.unicode();
        const bool markup = unit == u'<' || unit == u'>' || unit == u'&' || unit == u'"';
        return (unit >= u' ' || unit == u'\t') && unit < 0xD800 && !markup;
    });
}

// A "&" that begins a reference which is known everywhere, at a place.
bool BeginsReference(QStringView rest) {
    for (const char* known : {"&amp;", "&lt;", "&gt;", "&quot;", "&apos;"}) {
        if (rest.startsWith(QLatin1String(known)))
            return true;
    }
    const qsizetype end = rest.indexOf(u';');
    return rest.startsWith(QLatin1String("&#")) && end > 2 && end < 10;
}

// References that are there already stay.
QString Escaped(const QString& typed) {
    QString out;
    for (qsizetype i = 0; i < typed.size(); ++i) {
        const bool reference = typed[i] == u'&' && BeginsReference(QStringView(typed).sliced(i));
        out += reference ? QString(typed[i]) : mXMLEdit::convertStringToXML(typed[i]);
    }
    return out;
}

template <typename Good> std::optional<QString> Storable(const QString& typed, Good good) {
    if (IsPlain(typed) || good(typed))
        return typed;
    if (const QString escaped = Escaped(typed); good(escaped))
        return escaped;
    if (const QString escaped = mXMLEdit::convertStringToXML(typed); good(escaped))
        return escaped;
    return {};
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
