// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/ErrorReport.h"
#include <libxml/xmlerror.h>
#include <limits>

namespace xml {

namespace {

/// The last `needle` that starts before `place`; `place` itself when there is none.
qsizetype LastBefore(QStringView text, QStringView needle, qsizetype place) {
    const qsizetype found = place > 0 ? text.lastIndexOf(needle, place - 1) : -1;
    return found < 0 ? place : found;
}

/// The start of the reference that ends at the place.
qsizetype ReferenceBefore(QStringView text, qsizetype place) {
    const qsizetype entity = LastBefore(text, u"&", place);
    const qsizetype parameter = LastBefore(text, u"%", place);
    return entity == place ? parameter : parameter == place ? entity : std::max(entity, parameter);
}

bool IsBlank(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

/// The parser stands behind an attribute's value; its name starts here.
qsizetype NameOfAttributeBefore(QStringView text, qsizetype place, qsizetype nameLength) {
    qsizetype at = place - 1;
    if (at < 1 || (text[at] != u'"' && text[at] != u'\''))
        return place;
    at = text.lastIndexOf(text[at], at - 1) - 1;
    while (at > 0 && (IsBlank(text[at]) || text[at] == u'='))
        --at;
    const qsizetype start = at + 1 - nameLength;
    return start < 0 ? place : start;
}

/// The library counts "]]>" from the start of the run of text that holds it.
qsizetype CDataEndFrom(QStringView text, qsizetype place) {
    const qsizetype found = text.indexOf(u"]]>", std::max<qsizetype>(place - 2, 0));
    return found < 0 ? place : found;
}

/// The two hyphens stand right at or before the place.
qsizetype HyphensNear(QStringView text, qsizetype place) {
    const qsizetype found = text.indexOf(u"--", std::max<qsizetype>(place - 2, 0));
    return found < 0 || found > place + 1 ? place : found;
}

/// A number reference is judged when it was read to its end, a wrong digit where it stands.
qsizetype NumberReference(QStringView text, qsizetype place) {
    return place > 0 && text[place - 1] == u';' ? LastBefore(text, u"&", place) : place;
}

/// In an end tag without a name the library passes over the blanks.
qsizetype MissingEndTagName(QStringView text, qsizetype place) {
    qsizetype at = place;
    while (at > 0 && IsBlank(text[at - 1]))
        --at;
    return text.left(at).endsWith(u"</") ? at : place;
}

qsizetype PastBlanks(QStringView text, qsizetype at) {
    while (at < text.size() && IsBlank(text[at]))
        ++at;
    return at;
}

/// The place behind a name that starts there.
qsizetype NameEnd(QStringView text, qsizetype at) {
    while (at < text.size() && !IsBlank(text[at]) && !QStringView(u"=/>").contains(text[at]))
        ++at;
    return at;
}

/// The parser stands behind the attributes of a tag; the name is the element's or one of theirs. An attribute
/// that the element has by default isn't there: the element's name stands for it.
qsizetype NameInTagBefore(QStringView text, qsizetype place, QStringView name) {
    const qsizetype element = LastBefore(text, u"<", place) + 1;
    for (qsizetype at = element; at < place;) {
        const qsizetype end = NameEnd(text, at);
        if (text.mid(at, end - at) == name)
            return at;
        at = PastBlanks(text, end);
        if (at < place && text[at] == u'=') {
            at = PastBlanks(text, at + 1);
            const qsizetype quote = at < place ? text.indexOf(text[at], at + 1) : -1;
            at = quote < 0 ? place : PastBlanks(text, quote + 1);
        } else if (end == at) {
            break;
        }
    }
    return element;
}

/// The parser stands behind a declaration, or behind a part of it that holds the name.
qsizetype NameInDeclarationBefore(QStringView text, qsizetype place, QStringView name) {
    const qsizetype from = LastBefore(text, u"<!", place);
    const qsizetype found = text.indexOf(name, from);
    return found < 0 || found > place ? from : found;
}

/// The parser stands behind what a name belongs to that breaks a rule for namespaces.
qsizetype BadNameBefore(QStringView text, const Complaint& complaint) {
    const qsizetype place = complaint.place;
    if (text.left(place).endsWith(u"?>"))
        return LastBefore(text, u"<?", place) + 2;
    const bool declared = text.mid(LastBefore(text, u"<", place)).startsWith(u"<!");
    return declared || complaint.code == kErrorColon ? NameInDeclarationBefore(text, place, complaint.name)
                                                     : NameInTagBefore(text, place, complaint.name);
}

bool IsNoticedBehind(const Complaint& complaint) {
    if (IsNamespaceError(complaint.code))
        return true;
    switch (complaint.code) {
    case XML_ERR_TAG_NAME_MISMATCH:
    case XML_ERR_ATTRIBUTE_REDEFINED:
    case XML_ERR_RESERVED_XML_NAME:
    case XML_ERR_ENTITY_LOOP:
    case XML_ERR_UNPARSED_ENTITY:
    case XML_ERR_INVALID_CHAR:
    case kErrorUndeclaredEntity:
    case kErrorExternalEntity:
    case kErrorExpansion:
    case kErrorDepth:
    case kErrorManyAttributes:
    case kErrorComparedAttributes:
    case kErrorDefaults:
    case kErrorManyNames:
    case kErrorParameterEntity:
    case kErrorReservedTarget:
    case kErrorNotation:
        return true;
    default:
        return complaint.inEntity;
    }
}

/// The place that is to blame when the text did not just end.
qsizetype PlaceOfKind(QStringView text, const Complaint& complaint) {
    const qsizetype place = complaint.place;
    if (complaint.inEntity)
        return ReferenceBefore(text, place);
    if (IsNamespaceError(complaint.code))
        return BadNameBefore(text, complaint);
    switch (complaint.code) {
    case XML_ERR_TAG_NAME_MISMATCH:
        return std::min(LastBefore(text, u"</", place) + 2, text.size() - 1);
    case XML_ERR_GT_REQUIRED:
        return MissingEndTagName(text, place);
    case XML_ERR_ATTRIBUTE_REDEFINED:
        return NameOfAttributeBefore(text, place, complaint.name.size());
    case XML_ERR_RESERVED_XML_NAME:
    case kErrorReservedTarget:
        return std::min(LastBefore(text, u"<?", place) + 2, text.size() - 1);
    case kErrorUndeclaredEntity:
    case kErrorExternalEntity:
    case kErrorExpansion:
    case XML_ERR_ENTITY_LOOP:
    case XML_ERR_UNPARSED_ENTITY:
    case kErrorParameterEntity:
        return ReferenceBefore(text, place);
    case kErrorDepth:
    case kErrorManyNames:
    case kErrorManyAttributes:
    case kErrorComparedAttributes:
    case kErrorDefaults:
        return place < text.size() && text[place] == u'<' ? place : LastBefore(text, u"<", place);
    case kErrorNotation:
        return NameInDeclarationBefore(text, place, complaint.name);
    case XML_ERR_MISPLACED_CDATA_END:
        return CDataEndFrom(text, place);
    case XML_ERR_HYPHEN_IN_COMMENT:
        return HyphensNear(text, place);
    case XML_ERR_INVALID_CHAR:
        return NumberReference(text, place);
    default:
        return place;
    }
}

} // namespace

bool IsForbiddenCharacter(QStringView text, qsizetype place) {
    if (place < 0 || place >= text.size())
        return false;
    const char16_t unit = text[place].unicode();
    if (unit < 0x20)
        return unit != u'\t' && unit != u'\n' && unit != u'\r';
    if (QChar::isHighSurrogate(unit))
        return place + 1 >= text.size() || !text[place + 1].isLowSurrogate();
    if (QChar::isLowSurrogate(unit))
        return place == 0 || !text[place - 1].isHighSurrogate();
    return unit >= 0xFFFE;
}

bool IsSecondMark(QStringView text, const Complaint& complaint, qsizetype place) {
    return complaint.code == XML_ERR_DOCUMENT_EMPTY && place >= 0 && text[place] == QChar::ByteOrderMark;
}

bool IsPrematureEnd(QStringView text, const Complaint& complaint) {
    return complaint.place >= text.size() && !IsNoticedBehind(complaint);
}

qsizetype ErrorPlace(QStringView text, const Complaint& complaint) {
    if (text.isEmpty())
        return -1;
    qsizetype place = complaint.place;
    if (complaint.sentence.isEmpty() && !IsPrematureEnd(text, complaint) &&
        !IsForbiddenCharacter(text, place))
        place = PlaceOfKind(text, complaint);
    place = std::clamp<qsizetype>(place, 0, text.size() - 1);
    // Never the second half of a character.
    if (text[place].isLowSurrogate() && place > 0 && text[place - 1].isHighSurrogate())
        --place;
    return place;
}

} // namespace xml
