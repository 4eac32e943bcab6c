// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Encodings.h"

namespace mXMLEdit {

void LoadEncoding(controls::ComboBox& combo) {
    static const QStringList labels{
        QStringLiteral("UTF-7"),    QStringLiteral("UTF-8"),   QStringLiteral("UTF-16"),
        QStringLiteral("GB2312"),   QStringLiteral("8859-1"),  QStringLiteral("8859-2"),
        QStringLiteral("ASCII"),    QStringLiteral("ISO-646"), QStringLiteral("850"),
        QStringLiteral("1252"),     QStringLiteral("1255"),    QStringLiteral("SHIFT-JIS"),
        QStringLiteral("MS-KANJI"), QStringLiteral("BIG5")};
    for (int i = 0; i < labels.size(); ++i)
        combo.AddItem(labels[i], i);
}

void FindEncoding(const QString& name, controls::ComboBox& combo) {
    if (const int index = static_cast<int>(combo.Items().indexOf(name)); index >= 0)
        combo.SetListIndex(index);
}

} // namespace mXMLEdit
