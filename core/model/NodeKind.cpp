// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/NodeKind.h"
#include "core/model/Application.h"
#include <algorithm>

namespace m_tvXML {

namespace {

// The number that the digits in front make; 0 without one, and where 16 bits can't hold it.
int NumberInFront(QStringView text) {
    constexpr int kLargest = 32767;
    int number = 0;
    for (const QChar c : text) {
        if (c < u'0' || c > u'9')
            break;
        number = number * 10 + (c.unicode() - u'0');
        if (number > kLargest)
            return 0;
    }
    return number;
}

} // namespace

QString GetDistinctElementKey(Application& app, int nodeType) {
    return u'<' + QString::number(nodeType) + u'>' + QString::number(++app.ElementKeyCounter);
}

int GetKeyType(const QString& key) {
    if (!key.contains(u'<'))
        return 0;
    QStringView rest(key);
    if (rest.indexOf(u'=') > 0)
        rest = rest.mid(rest.lastIndexOf(u'=') + 1);
    const qsizetype open = rest.indexOf(u'<');
    if (open < 0)
        return 0;
    const qsizetype close = rest.indexOf(u'>', open);
    if (close < 0)
        return 0;
    return NumberInFront(rest.mid(open + 1, close - open - 1));
}

int GetKeyType(TreeNode node) {
    if (!node || !node.Parent())
        return kTreeRoot; // a document's name may look like a key
    const int kind = node.KeyKind();
    return kind >= 0 ? kind : GetKeyType(node.Key());
}

int GetKeyType(controls::TreeCursor node) {
    return node.parent() ? std::max(node.kind(), 0) : kTreeRoot;
}

bool IsTreeRoot(TreeNode node) {
    return node && node.Root() == node;
}

bool IsElement(TreeNode node) {
    return node && GetKeyType(node) == kElement;
}

bool HasTextForm(TreeNode node) {
    switch (GetKeyType(node)) {
    case kElement:
    case kText:
    case kInstruction:
    case kComment:
        return true;
    default:
        return IsTreeRoot(node);
    }
}

QString PictureOf(int kind) {
    switch (kind) {
    case kElement:
        return QStringLiteral("element");
    case kText:
        return QStringLiteral("text");
    case kInstruction:
        return QStringLiteral("processinginstruction");
    default:
        return QStringLiteral("comment");
    }
}

} // namespace m_tvXML
