// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/xml/ParsedDocument.h"
#include <QString>
#include <QStringView>

namespace xml {

// Kinds of errors that are found here; all others carry the parser library's number, which is stable as well.
inline constexpr int kErrorMemory = 10000;             ///< memory ran out
inline constexpr int kErrorUndeclaredEntity = 10001;   ///< a reference to an entity that is not declared
inline constexpr int kErrorExternalEntity = 10002;     ///< a reference to an entity outside the document
inline constexpr int kErrorExpansion = 10003;          ///< the entities expand to too much
inline constexpr int kErrorDepth = 10004;              ///< elements stand too deep in each other
inline constexpr int kErrorManyAttributes = 10005;     ///< one element has too many attributes
inline constexpr int kErrorReservedTarget = 10006;     ///< an instruction with a target such as XML
inline constexpr int kErrorUnexpected = 10007;         ///< the parser gave up without a word
inline constexpr int kErrorDefaults = 10008;           ///< the defaults of attributes amount to too much
inline constexpr int kErrorManyNames = 10009;          ///< there are too many different names
inline constexpr int kErrorParameterEntity = 10010;    ///< the document type declaration expands to too much
inline constexpr int kErrorLongDeclaration = 10011;    ///< one declaration in it is too long
inline constexpr int kErrorComparedAttributes = 10012; ///< too many elements have many attributes

inline constexpr int kErrorStopped = 10013; ///< who asked for the parse stopped it

/// What went wrong while a text was parsed, before it is put in words.
struct Complaint {
    int code = 0;
    qsizetype place = 0; ///< 0-based unit where the parser stood when it noticed; see ErrorPlace
    QString name{};      ///< the element, attribute or entity concerned, if any
    QString sentence{};  ///< finished words; then `place` is exact
    bool inEntity =
        false;         ///< noticed inside the replacement text of the entity whose reference ends at `place`
    QString message{}; ///< the parser library's words
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

/// Whether the parser stood at the end of the text: something is missing there.
bool IsPrematureEnd(QStringView text, const Complaint& complaint);

} // namespace xml
