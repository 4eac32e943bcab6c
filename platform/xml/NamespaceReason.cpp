// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/NamespaceReason.h"
#include "platform/xml/ErrorWords.h"

namespace xml {

namespace {

QStringView Prefix(QStringView name) {
    return name.left(std::max<qsizetype>(name.indexOf(u':'), 0));
}

QStringView LocalPart(QStringView name) {
    return name.mid(name.indexOf(u':') + 1);
}

/// A name that is no name with a prefix, nor one without.
QString FormReason(int code, const QString& name) {
    switch (code) {
    case kErrorTwoColons:
        return QStringLiteral("The name %1 has more than one ':'.").arg(Quoted(name));
    case kErrorNoPrefix:
        return QStringLiteral("The name %1 has no prefix in front of its ':'.").arg(Quoted(name));
    case kErrorNoLocalPart:
        return QStringLiteral("The name %1 has nothing behind its ':'.").arg(Quoted(name));
    case kErrorLocalPart:
        return QStringLiteral("The part of the name %1 behind its ':' cannot start with %2.")
            .arg(Quoted(name), Quoted(LocalPart(name).left(1)));
    case kErrorColon:
        return QStringLiteral("The name %1 cannot have a ':'; only elements and attributes have prefixes.")
            .arg(Quoted(name));
    default:
        return {};
    }
}

QString DeclarationReason(int code, const QString& name) {
    switch (code) {
    case kErrorXmlPrefix:
        return QStringLiteral("The prefix 'xml' cannot be declared for another namespace than its own.");
    case kErrorXmlNamespace:
        return QStringLiteral("No other prefix than 'xml' can be declared for its namespace.");
    case kErrorXmlnsPrefix:
        return QStringLiteral("The prefix 'xmlns' cannot be declared.");
    case kErrorXmlnsNamespace:
        return QStringLiteral("The namespace of the prefix 'xmlns' cannot be declared.");
    case kErrorEmptyNamespace:
        return QStringLiteral("The declaration of the prefix %1 is empty: it must name a namespace.")
            .arg(Quoted(LocalPart(name)));
    default:
        return {};
    }
}

} // namespace

QString NamespaceReason(const Complaint& complaint) {
    const QString& name = complaint.name;
    switch (complaint.code) {
    case kErrorUnboundPrefix:
        return QStringLiteral("The prefix %1 of the name %2 is not declared.")
            .arg(Quoted(Prefix(name)), Quoted(name));
    case kErrorSameAttribute:
        return QStringLiteral(
                   "The attribute %1 stands twice in one tag: another prefix there is declared for "
                   "the same namespace.")
            .arg(Quoted(name));
    case kErrorXmlnsElement:
        return QStringLiteral("The element %1 cannot have the prefix 'xmlns'.").arg(Quoted(name));
    default:
        break;
    }
    const QString form = FormReason(complaint.code, name);
    return form.isEmpty() ? DeclarationReason(complaint.code, name) : form;
}

} // namespace xml
