// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/xml/ErrorCodes.h"
#include "platform/xml/ParsedDocument.h"
#include <QString>
#include <QStringView>

namespace xml {

/// What went wrong while a text was parsed, before it is put in words.
struct Complaint {
    int code = 0;
    qsizetype place = 0; ///< 0-based unit where the parser stood when it noticed; see ErrorPlace
    QString name{};      ///< the element, attribute or entity concerned, if any
    QString sentence{};  ///< finished words; then `place` is exact
    bool inEntity =
        false; ///< noticed inside the replacement text of the entity whose reference ends at `place`
};

/// The 0-based unit that is to blame: the parser notices some errors only behind the wrong character.
/// At a premature end the last character of the text. -1 for an empty text.
qsizetype ErrorPlace(QStringView text, const Complaint& complaint);

/// The error in one readable sentence, without a line end. `place` is the result of ErrorPlace.
QString ErrorReason(QStringView text, const Complaint& complaint, qsizetype place);

/// Everything that is reported about the error.
ParseError MakeParseError(QStringView text, const Complaint& complaint, const QString& url);

/// Whether XML allows the character at `place` of the text nowhere (half of a pair, most controls, U+FFFE,
/// U+FFFF).
bool IsForbiddenCharacter(QStringView text, qsizetype place);

/// Whether a byte-order mark stands at `place` where the document should start: the file's own was taken off
/// when it was decoded, so this is one too many.
bool IsSecondMark(QStringView text, const Complaint& complaint, qsizetype place);

/// Whether the parser stood at the end of the text: something is missing there.
bool IsPrematureEnd(QStringView text, const Complaint& complaint);

} // namespace xml
