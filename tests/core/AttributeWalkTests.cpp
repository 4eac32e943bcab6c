// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/AttributeWalk.h"
#include "core/model/Attributes.h"
#include <gtest/gtest.h>
#include <random>

namespace {

std::string Pairs(const QStringList& names, const QStringList& values) {
    QString out;
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (!names[i].isEmpty())
            out += names[i] + u'|' + values[i] + u'\n';
    }
    return out.toStdString();
}

std::string Walked(const QString& tag) {
    text::CompactBuilder held;
    held.append(QStringView(tag));
    QStringList names, values;
    for (m_tvXML::AttributeWalk walk(held.view()); walk.next();) {
        names << walk.name().toString();
        values << walk.value().toString();
    }
    return Pairs(names, values);
}

} // namespace

TEST(AttributeWalk, TakesAnyTagApartAsTheOneReaderDoes) {
    std::mt19937 random(7);
    const QString letters = QStringLiteral("ab=\" \u00e4\u20ac&;");
    for (int round = 0; round < 2000; ++round) {
        QString tag = round % 2 == 0 ? QStringLiteral("x=\"1\" \u20ac=\"\"") : QString();
        for (auto length = random() % 14; length > 0; --length)
            tag += letters[static_cast<qsizetype>(random() % static_cast<std::size_t>(letters.size()))];
        QStringList names, values;
        m_tvXML::GetAllAttributesNameAndValue(tag, names, values);
        EXPECT_EQ(Walked(tag), Pairs(names, values)) << tag.toStdString();
    }
}
