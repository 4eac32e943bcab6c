// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/ErrorReport.h"
#include "platform/xml/ErrorWords.h"
#include "platform/xml/KindReason.h"
#include "platform/xml/NamespaceReason.h"
#include <libxml/xmlerror.h>

namespace xml {

namespace {

/// The character at a place, as it can be shown in a sentence.
QString Shown(QStringView text, qsizetype place) {
    const QChar c = text[place];
    if (c == u'\r' || c == u'\n')
        return QStringLiteral("the end of the line");
    if (c == u' ' || c == u'\t')
        return QStringLiteral("a blank");
    const bool pair = c.isHighSurrogate() && place + 1 < text.size() && text[place + 1].isLowSurrogate();
    return Quoted(text.mid(place, pair ? 2 : 1));
}

QString CodePoint(QChar c) {
    return QStringLiteral("U+%1").arg(static_cast<unsigned>(c.unicode()), 4, 16, QLatin1Char('0')).toUpper();
}

/// A name as it stands in the text from `place` on.
QStringView NameAt(QStringView text, qsizetype place) {
    qsizetype end = place;
    while (end < text.size() && !text[end].isSpace() && !QStringView(u"<>&;=\"'/?").contains(text[end]))
        ++end;
    return text.mid(place, end - place);
}

QString EntityName(QStringView text, qsizetype place) {
    return Quoted(NameAt(text, place + 1));
}

/// What is missing at the end of the text.
QString EndReason(const Complaint& complaint) {
    switch (complaint.code) {
    case XML_ERR_COMMENT_NOT_FINISHED:
        return QStringLiteral("The text ends inside a comment: '-->' is missing.");
    case XML_ERR_PI_NOT_FINISHED:
        return QStringLiteral("The text ends inside a processing instruction: '?>' is missing.");
    case XML_ERR_CDATA_NOT_FINISHED:
        return QStringLiteral("The text ends inside a CDATA section: ']]>' is missing.");
    case XML_ERR_ATTRIBUTE_NOT_FINISHED:
        return QStringLiteral(
            "The text ends inside an attribute value: the closing quotation mark is missing.");
    case XML_ERR_DOCTYPE_NOT_FINISHED:
        return QStringLiteral("The text ends inside the document type declaration.");
    case XML_ERR_ENTITYREF_SEMICOL_MISSING:
        return QStringLiteral("The text ends inside an entity reference: ';' is missing.");
    case XML_ERR_TAG_NOT_FINISHED:
        return QStringLiteral("The element %1 is not closed: its end tag is missing.")
            .arg(Quoted(complaint.name));
    case XML_ERR_DOCUMENT_EMPTY:
        return QStringLiteral("The document has no root element.");
    default:
        break;
    }
    return complaint.name.isEmpty()
               ? QStringLiteral("The text ends inside a tag or another piece of markup.")
               : QStringLiteral("The text ends inside a tag or another piece of markup; the element "
                                "%1 is not closed.")
                     .arg(Quoted(complaint.name));
}

QString ReferenceReason(QStringView text, const Complaint& complaint, qsizetype place) {
    const QString entity = EntityName(text, place);
    switch (complaint.code) {
    case kErrorUndeclaredEntity:
        return QStringLiteral("The entity %1 is not declared.").arg(Quoted(complaint.name));
    case kErrorExternalEntity:
        return QStringLiteral("The entity %1 lies outside the document; external entities are not read.")
            .arg(Quoted(complaint.name));
    case kErrorExpansion:
    case kErrorParameterEntity:
        return QStringLiteral("The entity %1 expands to too much text.").arg(entity);
    case XML_ERR_ENTITY_LOOP:
        return QStringLiteral("The entity %1 refers to itself, or entities are nested too deep.").arg(entity);
    case XML_ERR_UNPARSED_ENTITY:
        return QStringLiteral("The entity %1 is not a text and cannot be referred to here.").arg(entity);
    default:
        return {};
    }
}

/// Something other than a name stands where a name must start; what is in front of it tells what was meant.
QString NoNameReason(QStringView text, qsizetype place) {
    const QChar before = place > 0 ? text[place - 1] : QChar();
    const QChar found = text[place];
    if (before == u'&')
        return QStringLiteral(
            "The character '&' must start a reference; for the character itself write '&amp;'.");
    if (before == u'<' && found == u'/')
        return QStringLiteral("This end tag has no start tag.");
    if (before == u'<' && found == u'!')
        return QStringLiteral("This piece of markup is not allowed here, or not written in the way of XML.");
    if (found == u'<')
        return QStringLiteral("The tag is not closed: '>' is missing before '<'.");
    return QStringLiteral("A name cannot start with %1.").arg(Shown(text, place));
}

QString NoEndTagName(const Complaint& complaint) {
    return QStringLiteral("The end tag of %1 lacks its name.").arg(Quoted(complaint.name));
}

QString TagReason(QStringView text, const Complaint& complaint, qsizetype place) {
    const QString found = Shown(text, place);
    switch (complaint.code) {
    case XML_ERR_TAG_NAME_MISMATCH:
        return NameAt(text, place).isEmpty()
                   ? NoEndTagName(complaint)
                   : QStringLiteral("The end tag %1 does not match the start tag %2.")
                         .arg(Quoted(NameAt(text, place)), Quoted(complaint.name));
    case XML_ERR_ATTRIBUTE_REDEFINED:
        return QStringLiteral("The attribute %1 stands twice in one tag.").arg(Quoted(complaint.name));
    case XML_ERR_LT_IN_ATTRIBUTE:
        return QStringLiteral("The character '<' cannot stand in an attribute value; write '&lt;'.");
    case XML_ERR_ATTRIBUTE_WITHOUT_VALUE:
        return QStringLiteral("The attribute %1 has no value: '=' is missing before %2.")
            .arg(Quoted(complaint.name), found);
    case XML_ERR_ATTRIBUTE_NOT_STARTED:
        return QStringLiteral("An attribute value must start with a quotation mark, not with %1.").arg(found);
    case XML_ERR_ATTRIBUTE_NOT_FINISHED:
        return QStringLiteral("An attribute value lacks its closing quotation mark.");
    case XML_ERR_SPACE_REQUIRED:
        return QStringLiteral("A blank is missing before %1.").arg(found);
    case XML_ERR_NAME_REQUIRED:
        return NoNameReason(text, place);
    case XML_ERR_GT_REQUIRED:
        if (text.left(place).endsWith(u"</"))
            return NoEndTagName(complaint);
        return QStringLiteral("The tag is not closed: '>' is missing before %1.").arg(found);
    default:
        return {};
    }
}

QString ContentReason(QStringView text, const Complaint& complaint, qsizetype place) {
    switch (complaint.code) {
    case XML_ERR_ENTITYREF_SEMICOL_MISSING:
        return QStringLiteral(
                   "An entity reference lacks its ';' before %1; for the character '&' write '&amp;'.")
            .arg(Shown(text, place));
    case XML_ERR_MISPLACED_CDATA_END:
        return QStringLiteral("The characters ']]>' cannot stand in a text; write ']]&gt;'.");
    case XML_ERR_INVALID_CHAR:
        return QStringLiteral("The number reference %1 does not stand for a character of XML.")
            .arg(Quoted(NameAt(text, place + 1).toString().prepend(u'&').append(u';')));
    case XML_ERR_INVALID_HEX_CHARREF:
    case XML_ERR_INVALID_DEC_CHARREF:
    case XML_ERR_INVALID_CHARREF:
        return QStringLiteral("A number reference has %1 where a digit or ';' should stand.")
            .arg(Shown(text, place));
    case kErrorReservedTarget:
        return QStringLiteral("The name %1 is reserved; a processing instruction cannot have it.")
            .arg(Quoted(complaint.name));
    case XML_ERR_PI_NOT_STARTED:
        return QStringLiteral("A processing instruction must start with a name, not with %1.")
            .arg(Shown(text, place));
    default:
        return {};
    }
}

/// Something beside the root element.
QString OutsideReason(QStringView text, const Complaint& complaint, qsizetype place) {
    const QStringView rest = text.mid(place);
    if (IsSecondMark(text, complaint, place))
        return KindReason(kErrorByteOrderMark);
    if (complaint.code == XML_ERR_DOCUMENT_EMPTY)
        return QStringLiteral("Text is not allowed before the root element.");
    if (complaint.code != XML_ERR_DOCUMENT_END)
        return {};
    if (rest.startsWith(u"</"))
        return QStringLiteral("This end tag has no start tag.");
    if (rest.startsWith(u'<'))
        return QStringLiteral(
            "Only one root element is allowed, and no markup but comments and instructions behind it.");
    return QStringLiteral("Text is not allowed behind the root element.");
}

/// What is wrong inside an entity's replacement text, as the end of a sentence.
QString InsideReason(const Complaint& complaint) {
    QString sentence = NamespaceReason(complaint);
    if (sentence.isEmpty())
        sentence = KindReason(complaint.code);
    sentence[0] = sentence[0].toLower();
    return sentence;
}

} // namespace

QString ErrorReason(QStringView text, const Complaint& complaint, qsizetype place) {
    if (place < 0)
        return QStringLiteral("The text is empty.");
    if (IsForbiddenCharacter(text, place))
        return QStringLiteral("The character %1 is not allowed in XML.").arg(CodePoint(text[place]));
    if (!complaint.sentence.isEmpty())
        return complaint.sentence;
    const QString reference = ReferenceReason(text, complaint, place);
    if (!reference.isEmpty())
        return reference;
    if (complaint.inEntity)
        return QStringLiteral("The entity %1 does not fit here: %2")
            .arg(EntityName(text, place), InsideReason(complaint));
    if (IsPrematureEnd(text, complaint))
        return EndReason(complaint);
    const QString name = NamespaceReason(complaint);
    if (!name.isEmpty())
        return name;
    for (const auto reason : {TagReason, ContentReason, OutsideReason}) {
        const QString sentence = reason(text, complaint, place);
        if (!sentence.isEmpty())
            return sentence;
    }
    return KindReason(complaint.code);
}

} // namespace xml
